#include "host/drawing/entities/ValueChange.h"

#include "host/drawing/ItemValues.h"
#include "host/drawing/entities/ListedCodes.h"

namespace drawing {

namespace {

// Bytes of a record in which items are replaced, in their order.
class Replacement
{
public:
    explicit Replacement(std::string_view old) : m_old(old), m_position(old.data())
    {
        m_bytes.reserve(old.size() + 64);
    }

    bool isBehind(const Item &item) const { return item.bytes.data() < m_position; }
    // To add what comes there.
    std::string &insteadOf(const Item &item)
    {
        m_bytes.append(m_position, item.bytes.data());
        m_position = item.bytes.data() + item.bytes.size();
        return m_bytes;
    }
    std::string bytes()
    {
        m_bytes.append(m_position, m_old.data() + m_old.size());
        return std::move(m_bytes);
    }

private:
    std::string_view m_old;
    const char *m_position;
    std::string m_bytes;
};

// Whether the group can be written where the item is without a look at the groups around it.
bool canReplace(const ListedItem &listed, const Group &group)
{
    if (listed.origin == ListedItem::Derived || group.code == groupcode::Subclass ||
        group.code == groupcode::VertexCount)
        return false;
    const auto *point = std::get_if<Point>(&group.value);
    return !point || (listed.item.kind == ValueKind::Point && point->dimensions == listed.item.point.dimensions &&
                      point->dimensions == listed.item.coordinates);
}

// What a Record says of its bytes is no real and no point.
bool isField(const Item &item)
{
    return item.kind != ValueKind::Real && item.kind != ValueKind::Point;
}

} // namespace

bool changeValues(Drawing &drawing, RecordId record, const ValueChanges &changes)
{
    if (changes.items.isEmpty())
        return true;
    Database &database = drawing.database();
    const ItemValues values(database.format(), database.codec());
    Replacement replacement(database.bytes(record));
    auto fields = Database::Fields::Kept;
    auto group = changes.groups.begin();
    for (const ListedItem &listed : changes.items) {
        const Item &item = listed.item;
        const Group &next = *group++;
        if (!canReplace(listed, next) || replacement.isBehind(item))
            return false;
        std::string &bytes = replacement.insteadOf(item);
        const bool isWritten = isAngle(next.code) ? values.appendChanged(bytes, item, inDegrees(next))
                                                  : values.appendChanged(bytes, item, next);
        if (!isWritten)
            return false;
        if (isField(item))
            fields = Database::Fields::Changed;
    }
    database.replaceBytes(record, replacement.bytes(), fields);
    return true;
}

bool changeValues(Drawing &drawing, RecordId record, const GroupList &wanted)
{
    const Database &database = drawing.database();
    const EntityListing listing(drawing, record);
    if (wanted.size() != listing.size())
        return false;
    const ItemValues values(database.format(), database.codec());
    ValueChanges changes;
    std::size_t place = 0;
    for (const ListedItem listed : listing) {
        const bool isInHead = place < listing.headSize();
        const Group &next = wanted[place++];
        if (next.code != listed.item.code || next.code == groupcode::Braces)
            return false;
        if (isInHead || isFixed(next.code) || values.isSame(listed.item, next))
            continue;
        changes.items.push_back(listed);
        changes.groups.push_back(next);
    }
    return changeValues(drawing, record, changes);
}

} // namespace drawing
