#include "host/kernel/variables/SystemVariables.h"

#include "host/kernel/variables/VariableRules.h"

#include <QStringList>

#include <cassert>

namespace {

VariableValue initialValue(const VariableRow &row)
{
    const QStringView text(row.initial.data(), static_cast<qsizetype>(row.initial.size()));
    switch (row.type) {
    case VariableType::Integer:
        return text.toInt();
    case VariableType::Real:
        return text.toDouble();
    case VariableType::Text:
        return std::u16string(row.initial);
    case VariableType::Point2d:
    case VariableType::Point3d:
        break;
    }
    const QList<QStringView> parts = text.split(u',');
    return LispPoint{parts[0].toDouble(), parts[1].toDouble(), parts.size() > 2 ? parts[2].toDouble() : 0};
}

bool hasKind(const VariableValue &value, VariableType type)
{
    switch (type) {
    case VariableType::Integer:
        return std::holds_alternative<int>(value);
    case VariableType::Real:
        return std::holds_alternative<double>(value);
    case VariableType::Text:
        return std::holds_alternative<std::u16string>(value);
    case VariableType::Point2d:
    case VariableType::Point3d:
        return std::holds_alternative<LispPoint>(value);
    }
    return false;
}

const VariableRow &rowOf(std::u16string_view name)
{
    const VariableRow *row = findVariable(name);
    assert(row);
    return *row;
}

} // namespace

SystemVariables::SystemVariables()
{
    for (const VariableRow &row : variableTable())
        m_values.emplace(&row, initialValue(row));
}

VariableValue SystemVariables::get(const VariableRow &variable) const
{
    const auto source = m_sources.find(&variable);
    return source != m_sources.end() ? source->second.read() : m_values.at(&variable);
}

bool SystemVariables::set(const VariableRow &variable, const VariableValue &value)
{
    if (variable.access == VariableAccess::ReadOnly)
        return false;
    const std::optional<VariableValue> fitting = this->fitting(variable, value);
    if (!fitting || !store(variable, *fitting))
        return false;
    if (m_keep && variable.scope == VariableScope::Drawing)
        m_keep(variable, *fitting);
    return true;
}

bool SystemVariables::hasBeenFound(const VariableRow &variable, const VariableValue &value) const
{
    const auto opened = m_opened.find(&variable);
    return value == get(variable) || (opened != m_opened.end() && value == opened->second);
}

// The value as the variable has it; none: it is not allowed.
std::optional<VariableValue> SystemVariables::fitting(const VariableRow &variable, const VariableValue &value) const
{
    VariableValue wanted = value;
    if (variable.type == VariableType::Real && std::holds_alternative<int>(value))
        wanted = static_cast<double>(std::get<int>(value));
    if (!hasKind(wanted, variable.type))
        return std::nullopt;
    if (hasBeenFound(variable, wanted))
        return wanted;
    if (variable.rule.names != NameOf::Nothing && m_spelling)
        return m_spelling(variable.rule.names, std::get<std::u16string>(wanted));
    return isInRange(variable, wanted) ? std::optional(wanted) : std::nullopt;
}

bool SystemVariables::store(const VariableRow &variable, const VariableValue &value)
{
    const auto source = m_sources.find(&variable);
    if (source == m_sources.end())
        m_values[&variable] = value;
    else
        return source->second.write && source->second.write(value);
    return true;
}

void SystemVariables::load(const VariableRow &variable, const VariableValue &value)
{
    if (!hasKind(value, variable.type))
        return;
    store(variable, value);
    m_opened.try_emplace(&variable, value); // later it is an undone step that brings them
}

void SystemVariables::forgetDrawing()
{
    m_opened.clear();
    for (const VariableRow &row : variableTable())
        if (row.scope == VariableScope::Drawing && !isComputed(row))
            store(row, initialValue(row));
}

void SystemVariables::compute(std::u16string_view name, std::function<VariableValue()> read, Write write)
{
    m_sources[&rowOf(name)] = {.read = std::move(read), .write = std::move(write)};
}

bool SystemVariables::isComputed(const VariableRow &variable) const
{
    const auto source = m_sources.find(&variable);
    return source != m_sources.end() && !source->second.isPlace;
}

void SystemVariables::assign(std::u16string_view name, const VariableValue &value)
{
    const VariableRow &row = rowOf(name);
    assert(hasKind(value, row.type));
    store(row, value);
}

template <class Place> void SystemVariables::bindPlace(std::u16string_view name, Place &place)
{
    using Kind = std::conditional_t<std::is_same_v<Place, bool>, int, Place>;
    const VariableRow &row = rowOf(name);
    place = static_cast<Place>(std::get<Kind>(initialValue(row)));
    m_sources[&row] = {[&place]() -> VariableValue { return static_cast<Kind>(place); },
                       [&place](const VariableValue &value) {
                           place = static_cast<Place>(std::get<Kind>(value));
                           return true;
                       },
                       true};
}

void SystemVariables::bind(std::u16string_view name, int &place)
{
    bindPlace(name, place);
}

void SystemVariables::bind(std::u16string_view name, double &place)
{
    bindPlace(name, place);
}

void SystemVariables::bind(std::u16string_view name, LispPoint &place)
{
    bindPlace(name, place);
}

void SystemVariables::bind(std::u16string_view name, bool &place)
{
    bindPlace(name, place);
}
