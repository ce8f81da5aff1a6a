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

// How many coordinates of a point the record has.
int recordedDimensions(const Item &item, const FileFormat &format)
{
    GroupCursor cursor(item.bytes, format);
    int count = 0;
    for (RawGroup raw; cursor.next(raw);)
        count += raw.code != groupcode::Comment ? 1 : 0;
    return count;
}

// Whether the group can be written where the item is without a look at the groups around it.
bool canReplace(const ListedItem &listed, const Group &group, const FileFormat &format)
{
    if (listed.origin == ListedItem::Derived || group.code == groupcode::Subclass ||
        group.code == groupcode::VertexCount)
        return false;
    const auto *point = std::get_if<Point>(&group.value);
    return !point || (listed.item.kind == ValueKind::Point && point->dimensions == listed.item.point.dimensions &&
                      point->dimensions == recordedDimensions(listed.item, format));
}

// What a Record says of its bytes is no real and no point.
bool isField(const Item &item)
{
    return item.kind != ValueKind::Real && item.kind != ValueKind::Point;
}

} // namespace

bool changeValues(Drawing &drawing, RecordId record, std::span<const ChangedItem> changes)
{
    if (changes.empty())
        return true;
    Database &database = drawing.database();
    const ItemValues values(database.format(), database.codec());
    Replacement replacement(database.bytes(record));
    auto fields = Database::Fields::Kept;
    for (const auto &[listed, group] : changes) {
        if (!canReplace(listed, group, database.format()) || replacement.isBehind(listed.item) ||
            !values.appendChanged(replacement.insteadOf(listed.item), listed.item, inDegrees(group)))
            return false;
        if (isField(listed.item))
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
    std::vector<ChangedItem> changes;
    std::size_t place = 0;
    for (const ListedItem listed : listing) {
        const bool isInHead = place < listing.headSize();
        const Group &next = wanted[place++];
        if (next.code != listed.item.code || next.code == groupcode::Braces)
            return false;
        if (!isInHead && !isFixed(next.code) && !values.isSame(listed.item, next))
            changes.push_back({listed, next});
    }
    return changeValues(drawing, record, changes);
}

} // namespace drawing
