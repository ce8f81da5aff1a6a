#include "host/drawing/dimensions/BlockUsers.h"

namespace drawing {

namespace {

bool showsBlock(const Database &database, const Record &record)
{
    return record.kind == RecordKind::Entity && !record.isGone() &&
           (record.type == known::Insert || database.names().text(record.type).ends_with("DIMENSION"));
}

} // namespace

bool BlockUsers::isShownByOther(const Drawing &drawing, std::u16string_view block, RecordId entity)
{
    lookAtChanges(drawing);
    const auto users = m_users.find(folded(block));
    if (users == m_users.end())
        return false;
    const auto own = m_shown.find(entity);
    return users->second > (own != m_shown.end() && own->second == users->first ? 1U : 0U);
}

void BlockUsers::lookAtChanges(const Drawing &drawing)
{
    const Database &database = drawing.database();
    const auto changed = m_drawing == drawing.number() ? database.journal().changedSince(m_changeCount) : std::nullopt;
    if (changed) {
        for (const RecordId id : *changed)
            look(database, id);
    } else {
        m_shown.clear();
        m_users.clear();
        for (RecordId id = 0; id < database.recordCount(); ++id)
            look(database, id);
    }
    m_drawing = drawing.number();
    m_changeCount = database.journal().changeCount();
}

void BlockUsers::look(const Database &database, RecordId id)
{
    if (const auto old = m_shown.find(id); old != m_shown.end()) {
        --m_users[old->second];
        m_shown.erase(old);
    }
    if (!showsBlock(database, database.record(id)))
        return;
    const auto block = database.firstGroup(id, groupcode::Name);
    const auto *name = block ? std::get_if<std::u16string>(&block->value) : nullptr;
    if (!name)
        return;
    const std::u16string key = folded(*name);
    m_shown.emplace(id, key);
    ++m_users[key];
}

} // namespace drawing
