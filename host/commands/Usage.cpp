#include "host/commands/Usage.h"

#include "host/commands/NameUses.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/RawValues.h"

namespace commands {

using namespace drawing;

namespace {

constexpr int FirstPointer = 320, LastPointer = 369, ExtendedHandleCode = 1005;
constexpr NameId purged[] = {known::Layer, known::Linetype,       known::Style,
                             known::Block, known::DimensionStyle, known::Application};

// Groups that point from the owner to what it owns, or back, do not say that somebody needs it.
bool isOwnership(int code)
{
    return code == groupcode::Owner || code == groupcode::SoftEntry || code == groupcode::HardEntry;
}

} // namespace

Usage::Usage(Context &context) : m_database(context.database()), m_tables(context.tables())
{
    readSettings(context.session());
    for (RecordId id = 0; id < m_database.recordCount(); ++id)
        if (!m_database.record(id).isGone())
            readRecord(id);
}

void Usage::readSettings(const Session &session)
{
    for (const NameId table : purged)
        for (const std::u16string_view variable : variablesWithNameOf(table))
            addName(table, session.variable(variable) ? session.text(variable) : textInHeader(variable));
}

// Some variables stand in the header alone.
std::u16string Usage::textInHeader(std::u16string_view variable) const
{
    const std::optional<Group> group = drawing::variable(m_database, inHeader(variable));
    const auto *text = group ? std::get_if<std::u16string>(&group->value) : nullptr;
    return text ? *text : std::u16string();
}

void Usage::addName(NameId table, std::u16string_view name)
{
    m_names.emplace(table, folded(name));
}

void Usage::readRecord(RecordId id)
{
    const GroupList groups = m_database.groups(id);
    for (const NameUse &use : nameUses(m_database, id, groups))
        if (use.isNeeded)
            addName(use.table, std::get<std::u16string>(groups[use.place].value));
    for (const Group &group : groups) {
        const bool isPointer = group.code >= FirstPointer && group.code <= LastPointer && !isOwnership(group.code);
        if (const auto *handle = std::get_if<Handle>(&group.value); handle && isPointer)
            m_handles.insert(handle->value);
        if (const auto *text = std::get_if<std::u16string>(&group.value); text && group.code == ExtendedHandleCode)
            m_handles.insert(handleOf(*text));
    }
}

bool Usage::isPointedTo(RecordId record) const
{
    return record != NoRecord && m_handles.count(m_database.record(record).handle) != 0;
}

// Pointers to a block lead to its table record.
bool Usage::isUsed(NameId table, RecordId record) const
{
    const std::u16string name = m_database.name(record);
    if (isKept(table, name) || m_names.count({table, folded(name)}) != 0 || isPointedTo(record))
        return true;
    return table == known::Block && isPointedTo(m_tables.find(known::BlockRecord, name));
}

} // namespace commands
