#include "host/drawing/Dictionaries.h"

#include <algorithm>
#include <iterator>

namespace drawing {

namespace {

bool isEntry(const GroupList &groups, std::size_t place)
{
    return groups[place].code == groupcode::EntryName && std::holds_alternative<std::u16string>(groups[place].value) &&
           place + 1 < groups.size() && std::holds_alternative<Handle>(groups[place + 1].value);
}

// Among the groups the name of the entry with this place among the entries; the object's group follows it.
GroupList::iterator entryAt(GroupList &groups, std::size_t place)
{
    std::size_t group = 0;
    while (!isEntry(groups, group) || place-- > 0)
        ++group;
    return groups.begin() + static_cast<std::ptrdiff_t>(group);
}

// Behind the last of a dictionary's own groups.
GroupList::iterator endOfEntries(GroupList &groups)
{
    const auto marker = std::ranges::find(groups, groupcode::Subclass, &Group::code);
    const auto begin = marker != groups.end() ? marker + 1 : groups.begin();
    return std::find_if(begin, groups.end(), [](const Group &group) {
        return group.code == groupcode::Subclass || group.code == groupcode::Application;
    });
}

} // namespace

RecordId namedObjects(const Database &database)
{
    const RecordId section = database.section(known::Objects);
    if (section == NoRecord)
        return NoRecord;
    RecordId id = database.firstIn(section);
    while (id != NoRecord && (database.record(id).type != known::Dictionary || database.record(id).isGone()))
        id = database.nextIn(id);
    return id;
}

RecordId ensureNamedObjects(Database &database)
{
    if (const RecordId id = namedObjects(database); id != NoRecord)
        return id;
    return addObject(
        database,
        {{groupcode::Type, u"DICTIONARY"}, {groupcode::Owner, Handle{0}}, {groupcode::Subclass, u"AcDbDictionary"}});
}

Handle ownerOfUnnamed(const Database &database)
{
    const RecordId root = namedObjects(database);
    return {root != NoRecord ? database.record(root).handle : 0};
}

std::vector<DictionaryEntry> dictionaryEntries(const Database &database, RecordId dictionary)
{
    return database.dictionaries().entries(dictionary);
}

RecordId findEntry(const Database &database, RecordId dictionary, std::u16string_view name)
{
    const std::optional<std::size_t> place = database.dictionaries().placeOf(dictionary, name);
    if (!place)
        return NoRecord;
    const RecordId id = database.find(database.dictionaries().entries(dictionary)[*place].object);
    return id != NoRecord && !database.record(id).isGone() ? id : NoRecord;
}

bool putEntry(Database &database, RecordId dictionary, std::u16string_view name, Handle object)
{
    DictionaryIndex &index = database.dictionaries();
    const std::optional<std::size_t> place = index.placeOf(dictionary, name);
    const GroupList entry{{groupcode::EntryName, std::u16string(name)}, {groupcode::SoftEntry, object}};
    if (!place && index.growsAtEnd(dictionary)) {
        const bool isWritten = database.append(dictionary, entry);
        if (isWritten)
            index.noteGrown(dictionary);
        return isWritten;
    }
    GroupList groups = database.groups(dictionary);
    if (place)
        std::next(entryAt(groups, *place))->value = object;
    else
        groups.insert(endOfEntries(groups), entry.begin(), entry.end());
    return database.replace(dictionary, groups);
}

bool removeEntry(Database &database, RecordId dictionary, std::u16string_view name)
{
    const std::optional<std::size_t> place = database.dictionaries().placeOf(dictionary, name);
    if (!place)
        return false;
    GroupList groups = database.groups(dictionary);
    const auto entry = entryAt(groups, *place);
    groups.erase(entry, entry + 2);
    return database.replace(dictionary, groups);
}

RecordId addObject(Database &database, const GroupList &groups)
{
    const RecordId section = database.ensureSection(known::Objects);
    return database.add(RecordKind::Object, groups, database.endOf(section));
}

RecordId extensionDictionary(const Database &database, RecordId id)
{
    GroupReader reader = database.reader(id);
    bool isInside = false;
    for (Item item; reader.next(item);) {
        if (item.code == groupcode::Braces)
            isInside = item.value == "{ACAD_XDICTIONARY";
        else if (isInside && item.code == groupcode::HardEntry)
            return database.find({item.handle});
    }
    return NoRecord;
}

RecordId ensureExtensionDictionary(Database &database, RecordId id)
{
    if (const RecordId there = extensionDictionary(database, id); there != NoRecord && !database.record(there).isGone())
        return there;
    constexpr int HardOwnerCode = 280, CloningCode = 281;
    const RecordId dictionary = addObject(database, {{groupcode::Type, u"DICTIONARY"},
                                                     {groupcode::Owner, Handle{database.record(id).handle}},
                                                     {groupcode::Subclass, u"AcDbDictionary"},
                                                     {HardOwnerCode, std::int64_t{1}},
                                                     {CloningCode, std::int64_t{1}}});
    if (dictionary == NoRecord)
        return NoRecord;
    GroupList groups = database.groups(id);
    const auto isOpening = [](const Group &group) {
        const auto *text = std::get_if<std::u16string>(&group.value);
        return group.code == groupcode::Braces && text && *text == u"{ACAD_XDICTIONARY";
    };
    if (const auto old = std::find_if(groups.begin(), groups.end(), isOpening); old != groups.end()) {
        const auto close =
            std::find_if(old + 1, groups.end(), [](const Group &group) { return group.code == groupcode::Braces; });
        groups.erase(old, close == groups.end() ? close : close + 1);
    }
    const auto handle = std::find_if(groups.begin(), groups.end(), [](const Group &group) {
        return group.code == groupcode::Handle || group.code == groupcode::DimStyleHandle;
    });
    const auto place = handle == groups.end() ? groups.begin() + 1 : handle + 1;
    groups.insert(place, {{groupcode::Braces, u"{ACAD_XDICTIONARY"},
                          {groupcode::HardEntry, Handle{database.record(dictionary).handle}},
                          {groupcode::Braces, u"}"}});
    return database.replace(id, groups) ? dictionary : NoRecord;
}

void eraseExtensionDictionary(Database &database, RecordId id)
{
    const RecordId dictionary = extensionDictionary(database, id);
    if (dictionary == NoRecord)
        return;
    for (const DictionaryEntry &entry : dictionaryEntries(database, dictionary))
        if (const RecordId object = database.find(entry.object); object != NoRecord)
            database.erase(object);
    database.erase(dictionary);
}

void ensureClass(Database &database, const ClassDeclaration &declaration)
{
    constexpr int ProxyFlagsCode = 90, InstancesCode = 91, WasProxyCode = 280, IsEntityCode = 281;
    if (database.isBefore2000())
        return;
    const RecordId section = database.ensureSection(known::Classes);
    for (RecordId id = database.firstIn(section); id != NoRecord; id = database.nextIn(id)) {
        const std::optional<Group> type = database.firstGroup(id, groupcode::PrimaryText);
        if (type && !database.record(id).isGone() && type->value == GroupValue(declaration.type))
            return;
    }
    GroupList groups{{groupcode::Type, u"CLASS"},
                     {groupcode::PrimaryText, declaration.type},
                     {groupcode::Name, declaration.className},
                     {3, declaration.application},
                     {ProxyFlagsCode, std::int64_t{0}}};
    if (database.version() >= "AC1018")
        groups.push_back({InstancesCode, std::int64_t{1}});
    groups.push_back({WasProxyCode, std::int64_t{0}});
    groups.push_back({IsEntityCode, std::int64_t{0}});
    database.add(RecordKind::Class, groups, database.endOf(section));
}

} // namespace drawing
