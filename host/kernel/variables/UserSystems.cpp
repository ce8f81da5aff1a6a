#include "host/kernel/variables/UserSystems.h"

#include "host/commands/CoordinateSystems.h"
#include "host/drawing/HeaderVariables.h"
#include "host/kernel/Document.h"

namespace {

constexpr std::array<std::u16string_view, 4> Variables{u"UCSORG", u"UCSXDIR", u"UCSYDIR", u"UCSNAME"};

std::optional<VariableValue> headerValue(const drawing::Database &database, const std::string &name)
{
    const std::optional<drawing::Group> group = drawing::variable(database, name);
    if (!group)
        return std::nullopt;
    if (const auto *place = std::get_if<drawing::Point>(&group->value))
        return LispPoint{place->x, place->y, place->z};
    if (const auto *text = std::get_if<std::u16string>(&group->value))
        return *text;
    return std::nullopt;
}

} // namespace

UserSystems::System &UserSystems::current()
{
    return m_document.isPaperSpaceCurrent() ? m_paper : m_model;
}

void UserSystems::compute(SystemVariables &variables)
{
    forgetDrawing();
    for (std::size_t i = 0; i < VariableCount; ++i)
        variables.compute(
            Variables[i], [this, i] { return current()[i]; },
            [this, i](const VariableValue &value) {
                current()[i] = value;
                return true;
            });
}

void UserSystems::forgetDrawing()
{
    m_model = {LispPoint{0, 0, 0}, LispPoint{1, 0, 0}, LispPoint{0, 1, 0}, std::u16string()};
    m_paper = m_model;
}

void UserSystems::readDrawing()
{
    const drawing::Database &database = m_document.drawing().database();
    for (std::size_t i = 0; i < VariableCount; ++i) {
        for (const bool isPaper : {false, true})
            if (auto kept = headerValue(database, commands::headerNameOf(isPaper, Variables[i]));
                kept && kept->index() == m_model[i].index())
                (isPaper ? m_paper : m_model)[i] = *std::move(kept);
    }
}
