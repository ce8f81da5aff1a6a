#include "host/drawing/edit/CopyLinks.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/RawValues.h"

#include <algorithm>
#include <unordered_map>

namespace drawing {

namespace {

constexpr int ExtendedHandleCode = 1005;

class CopyLinks
{
public:
    explicit CopyLinks(Database &database) : m_database(database) {}

    // With its vertices or attributes, of which the copy has as many.
    void add(const EntityCopy &entity)
    {
        m_copies.emplace(entity.original, entity.copy);
        const std::vector<RecordId> parts = partsOf(m_database, entity.original),
                                    copies = partsOf(m_database, entity.copy);
        for (std::size_t place = 0; place < std::min(parts.size(), copies.size()); ++place)
            m_copies.emplace(parts[place], copies[place]);
    }

    void link() const
    {
        for (const auto &[original, copy] : m_copies)
            if (pointsToOriginals(copy))
                link(copy);
    }

private:
    static bool isPointer(int code) { return code == ExtendedHandleCode || valueKind(code) == ValueKind::Reference; }

    // NoRecord also for what stands for itself.
    RecordId copyOf(Handle handle) const
    {
        const auto copied = m_copies.find(m_database.find(handle));
        return copied != m_copies.end() && copied->second != copied->first ? copied->second : NoRecord;
    }

    bool pointsToOriginals(RecordId copy) const
    {
        GroupReader reader = m_database.reader(copy);
        for (Item item; reader.next(item);)
            if (isPointer(item.code) && copyOf({item.handle}) != NoRecord)
                return true;
        return false;
    }

    void link(RecordId copy) const
    {
        GroupList groups = m_database.groups(copy);
        for (Group &group : groups) {
            if (!isPointer(group.code))
                continue;
            const auto *text = std::get_if<std::u16string>(&group.value);
            const auto *handle = std::get_if<Handle>(&group.value);
            if (const RecordId there = copyOf({text ? handleOf(*text) : handle->value}); there != NoRecord)
                group.value = Handle{m_database.record(there).handle};
        }
        m_database.replace(copy, groups);
    }

    Database &m_database;
    std::unordered_map<RecordId, RecordId> m_copies;
};

} // namespace

// Where a file gives no handles, those of the records are not what its texts mean.
void linkCopies(Drawing &drawing, const std::vector<EntityCopy> &copies)
{
    if (!drawing.database().writesHandles())
        return;
    CopyLinks links(drawing.database());
    for (const EntityCopy &entity : copies)
        links.add(entity);
    links.link();
}

} // namespace drawing
