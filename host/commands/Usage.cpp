#include "host/commands/Usage.h"

#include "host/drawing/Blocks.h"

namespace commands {

using namespace drawing;

namespace {

constexpr int LinetypeCode = 6, StyleCode = 7, DimensionStyleCode = 3;
constexpr int FirstPointer = 320, LastPointer = 369, ExtendedHandleCode = 1005, ExtendedLayerCode = 1003;

// Groups that point from the owner to what it owns, or back, do not say that somebody needs it.
bool isOwnership(int code)
{
    return code == groupcode::Owner || code == groupcode::SoftEntry || code == groupcode::HardEntry;
}

} // namespace

Usage::Usage(Context &context) : m_database(context.database())
{
    readSettings(context.session());
    for (RecordId id = 0; id < m_database.recordCount(); ++id)
        if (!m_database.record(id).isGone())
            readRecord(id);
}

void Usage::readSettings(const Session &session)
{
    addName(known::Layer, session.text(u"CLAYER"));
    addName(known::Linetype, session.text(u"CELTYPE"));
    addName(known::Style, session.text(u"TEXTSTYLE"));
    addName(known::Style, session.text(u"DIMTXSTY"));
    addName(known::DimensionStyle, session.text(u"DIMSTYLE"));
    for (const std::u16string_view name : {u"DIMBLK", u"DIMBLK1", u"DIMBLK2"})
        addName(known::Block, session.text(name));
}

void Usage::addName(NameId table, std::u16string_view name)
{
    m_names.emplace(table, folded(name));
}

void Usage::readRecord(RecordId id)
{
    const Record &record = m_database.record(id);
    const bool isEntity = record.kind == RecordKind::Entity;
    const std::u16string type = m_database.type(id);
    for (const Group &group : m_database.groups(id)) {
        if (const auto *text = std::get_if<std::u16string>(&group.value)) {
            if (group.code == groupcode::Application)
                addName(known::Application, *text);
            else if (group.code == ExtendedLayerCode ||
                     (group.code == groupcode::Layer && record.kind != RecordKind::Object))
                addName(known::Layer, *text);
            else if (group.code == LinetypeCode)
                addName(known::Linetype, *text);
            else if (isEntity && group.code == StyleCode)
                addName(known::Style, *text);
            else if (isEntity && group.code == DimensionStyleCode)
                addName(known::DimensionStyle, *text);
            else if (isEntity && group.code == groupcode::Name && (type == u"INSERT" || type == u"DIMENSION"))
                addName(known::Block, *text);
        }
        const bool isPointer = group.code >= FirstPointer && group.code <= LastPointer && !isOwnership(group.code);
        if (const auto *handle = std::get_if<Handle>(&group.value);
            handle && (isPointer || group.code == ExtendedHandleCode))
            m_handles.insert(handle->value);
    }
}

// What a drawing cannot do without.
bool Usage::isKept(NameId table, const std::u16string &name) const
{
    const std::u16string plain = folded(name);
    const auto is = [&plain](std::u16string_view other) { return plain == folded(other); };
    switch (table) {
    case known::Layer:
        return is(u"0") || is(u"DEFPOINTS");
    case known::Linetype:
        return is(u"ByLayer") || is(u"ByBlock") || is(u"Continuous");
    case known::Style:
    case known::DimensionStyle:
        return is(u"Standard") || name.empty();
    case known::Application:
        return is(u"ACAD");
    default:
        return plain.starts_with(folded(ModelSpace)) || plain.starts_with(folded(PaperSpace));
    }
}

bool Usage::isUsed(NameId table, RecordId record) const
{
    const std::u16string name = m_database.name(record);
    if (isKept(table, name) || m_names.count({table, folded(name)}) != 0)
        return true;
    return m_handles.count(m_database.record(record).handle) != 0;
}

} // namespace commands
