#include "host/drawing/DrawOrder.h"

#include "host/drawing/Dictionaries.h"

#include <algorithm>
#include <unordered_map>

namespace drawing {

namespace {

constexpr int EntityCode = 331;
constexpr std::u16string_view TableName = u"ACAD_SORTENTS";

RecordId sortTable(const Database &database, RecordId blockRecord)
{
    const RecordId dictionary = blockRecord == NoRecord ? NoRecord : extensionDictionary(database, blockRecord);
    return dictionary == NoRecord ? NoRecord : findEntry(database, dictionary, TableName);
}

// Handles to draw by instead of the entities' own.
std::unordered_map<RecordId, std::uint64_t> sortHandles(const Database &database, RecordId table)
{
    std::unordered_map<RecordId, std::uint64_t> handles;
    GroupReader reader = database.reader(table);
    RecordId entity = NoRecord;
    for (Item item; reader.next(item);)
        if (item.code == EntityCode)
            entity = database.find({item.handle});
        else if (item.code == groupcode::Handle && entity != NoRecord)
            handles[std::exchange(entity, NoRecord)] = item.handle;
    return handles;
}

// The entities' own handles, sorted and dealt out anew in the order of drawing; who gets its own is not named.
GroupList tableGroups(const Database &database, RecordId blockRecord, const std::vector<RecordId> &entities)
{
    std::vector<std::uint64_t> handles;
    for (const RecordId entity : entities)
        handles.push_back(database.record(entity).handle);
    std::sort(handles.begin(), handles.end());
    GroupList groups{{groupcode::Subclass, u"AcDbSortentsTable"},
                     {groupcode::Owner, Handle{database.record(blockRecord).handle}}};
    for (std::size_t place = 0; place < entities.size(); ++place) {
        const std::uint64_t own = database.record(entities[place]).handle;
        if (own == handles[place])
            continue;
        groups.insert(groups.end(), {{EntityCode, Handle{own}}, {groupcode::Handle, Handle{handles[place]}}});
    }
    return groups;
}

} // namespace

void sortForDrawing(const Database &database, RecordId blockRecord, std::vector<RecordId> &entities)
{
    const RecordId table = sortTable(database, blockRecord);
    if (table == NoRecord)
        return;
    const auto handles = sortHandles(database, table);
    const auto key = [&](RecordId id) {
        const auto found = handles.find(id);
        return found == handles.end() ? database.record(id).handle : found->second;
    };
    std::stable_sort(entities.begin(), entities.end(), [&](RecordId a, RecordId b) { return key(a) < key(b); });
}

bool setDrawOrder(Database &database, RecordId blockRecord, const std::vector<RecordId> &entities)
{
    if (blockRecord == NoRecord)
        return false;
    const RecordId dictionary = ensureExtensionDictionary(database, blockRecord);
    if (dictionary == NoRecord)
        return false;
    // The handle stands first, for the pairs have its code too.
    GroupList groups{{groupcode::Type, u"SORTENTSTABLE"},
                     {groupcode::Handle, Handle{}},
                     {groupcode::Owner, Handle{database.record(dictionary).handle}}};
    const GroupList own = tableGroups(database, blockRecord, entities);
    groups.insert(groups.end(), own.begin(), own.end());
    // Replaced as a whole: the handles of its pairs have the code of a record's own.
    if (const RecordId old = sortTable(database, blockRecord); old != NoRecord)
        database.erase(old);
    ensureClass(database, {u"SORTENTSTABLE", u"AcDbSortentsTable", u"ObjectDBX Classes"});
    const RecordId table = addObject(database, groups);
    return table != NoRecord && putEntry(database, dictionary, TableName, Handle{database.record(table).handle});
}

} // namespace drawing
