#include "host/drawing/entities/Attachments.h"

#include "host/drawing/Dictionaries.h"
#include "host/drawing/entities/Braces.h"

#include <algorithm>

namespace drawing {

namespace {

constexpr std::u16string_view DictionaryBrace = u"{ACAD_XDICTIONARY", ReactorsBrace = u"{ACAD_REACTORS";
constexpr std::u16string_view openings[] = {DictionaryBrace, ReactorsBrace}; // in the order of files

using Place = GroupList::const_iterator;

struct Part
{
    Place begin, end; // from the opening brace to behind the closing one

    bool isClosed() const { return end - begin > 1 && std::prev(end)->code == groupcode::Braces; }
    std::span<const Group> inside() const { return {begin + 1, end - 1}; }
    bool operator==(const Part &other) const { return std::equal(begin, end, other.begin, other.end); }
};

bool isOpening(const Group &group, std::u16string_view brace)
{
    const auto *text = std::get_if<std::u16string>(&group.value);
    return group.code == groupcode::Braces && text && *text == brace;
}

// The data of an XRECORD may have any codes, and mean nothing by them.
Place endOfAttachments(const GroupList &list)
{
    const auto *type = findValue<std::u16string>(list, groupcode::Type);
    return type && *type == u"XRECORD" ? std::ranges::find(list, groupcode::Subclass, &Group::code) : list.end();
}

std::optional<Part> partOf(const GroupList &list, std::u16string_view brace)
{
    const Place end = endOfAttachments(list);
    const Place begin =
        std::find_if(list.begin(), end, [brace](const Group &group) { return isOpening(group, brace); });
    if (begin == end)
        return std::nullopt;
    const Place close =
        std::find_if(begin + 1, end, [](const Group &group) { return group.code == groupcode::Braces; });
    return Part{begin, close != end ? close + 1 : close};
}

GroupList::iterator ownerIn(GroupList &groups)
{
    return std::ranges::find_if(groups, [braces = Braces()](const Group &group) mutable {
        return !braces.enclose(group) && group.code == groupcode::Owner;
    });
}

GroupList::iterator behindHandle(GroupList &groups)
{
    const auto handle = std::ranges::find_if(groups, [](const Group &group) {
        return group.code == groupcode::Handle || group.code == groupcode::DimStyleHandle;
    });
    return (handle != groups.end() ? handle : groups.begin()) + 1;
}

// None for what is no dictionary, or for the one that all others hang on.
RecordId dictionaryOf(const Database &database, Handle handle)
{
    const RecordId dictionary = database.find(handle);
    const bool isThere = dictionary != NoRecord && !database.record(dictionary).isGone() &&
                         database.record(dictionary).type == known::Dictionary && dictionary != namedObjects(database);
    return isThere ? dictionary : NoRecord;
}

// The first dictionary has also what it has no name for.
bool isOwned(const Database &database, RecordId object, Handle owner)
{
    if (owner.value == 0 || owner != ownerOfUnnamed(database))
        return owner.value != 0;
    const auto &entries = database.dictionaries().entries(namedObjects(database));
    const Handle handle{database.record(object).handle};
    return std::ranges::find(entries, handle, &DictionaryEntry::object) != entries.end();
}

// `record` is NoRecord for one that is yet to be made.
bool canOwn(const Database &database, RecordId record, Handle handle)
{
    const RecordId dictionary = dictionaryOf(database, handle);
    if (dictionary == NoRecord || dictionary == record)
        return false;
    GroupList groups = database.groups(dictionary);
    const auto group = ownerIn(groups);
    const Handle nobody, *owner = group != groups.end() ? std::get_if<Handle>(&group->value) : &nobody;
    return owner && (!isOwned(database, dictionary, *owner) ||
                     (record != NoRecord && owner->value == database.record(record).handle));
}

bool isThere(const Database &database, Handle handle)
{
    const RecordId record = database.find(handle);
    return record != NoRecord && !database.record(record).isGone();
}

bool canHave(const Database &database, RecordId record, std::u16string_view brace, const Part &part)
{
    if (database.isBefore2000() || !part.isClosed())
        return false;
    const auto inside = part.inside();
    const bool isDictionary = brace == DictionaryBrace;
    if (isDictionary && inside.size() > 1)
        return false;
    return std::ranges::all_of(inside, [&](const Group &group) {
        const auto *handle = std::get_if<Handle>(&group.value);
        if (!handle || group.code != (isDictionary ? groupcode::HardEntry : groupcode::Owner))
            return false;
        return isDictionary ? canOwn(database, record, *handle) : isThere(database, *handle);
    });
}

void setOwner(Database &database, RecordId dictionary, Handle owner)
{
    GroupList groups = database.groups(dictionary);
    if (const auto group = ownerIn(groups); group != groups.end())
        group->value = owner;
    else
        groups.insert(behindHandle(groups), {groupcode::Owner, owner});
    database.replace(dictionary, groups);
}

} // namespace

GroupList attachmentsForNew(const Drawing &drawing, const GroupList &list)
{
    GroupList attachments;
    for (const std::u16string_view brace : openings)
        if (const auto part = partOf(list, brace);
            part && canHave(drawing.database(), NoRecord, brace, *part) && !part->inside().empty())
            attachments.insert(attachments.end(), part->begin, part->end);
    return attachments;
}

GroupList withoutAttachments(const GroupList &list)
{
    GroupList rest = list;
    for (const std::u16string_view brace : openings)
        if (const auto part = partOf(rest, brace))
            rest.erase(part->begin, part->end);
    return rest;
}

bool canAttach(const Drawing &drawing, RecordId record, const GroupList &wanted)
{
    const Database &database = drawing.database();
    if (std::ranges::find(wanted, groupcode::Braces, &Group::code) == wanted.end())
        return true;
    const GroupList recorded = database.groups(record);
    return std::ranges::all_of(openings, [&](std::u16string_view brace) {
        const std::optional<Part> next = partOf(wanted, brace);
        return !next || next == partOf(recorded, brace) || canHave(database, record, brace, *next);
    });
}

void putAttachments(GroupList &groups, const GroupList &wanted)
{
    for (auto brace = std::rbegin(openings); brace != std::rend(openings); ++brace) { // each ahead of the later ones
        const std::optional<Part> next = partOf(wanted, *brace);
        if (!next)
            continue;
        const std::optional<Part> old = partOf(groups, *brace);
        const Place place = old ? Place(groups.erase(old->begin, old->end)) : Place(behindHandle(groups));
        if (next->isClosed() && !next->inside().empty())
            groups.insert(place, next->begin, next->end);
    }
}

void ownExtensionDictionary(Database &database, RecordId record, RecordId before)
{
    const RecordId dictionary = extensionDictionary(database, record);
    if (dictionary == before)
        return;
    if (before != NoRecord && !database.record(before).isGone())
        setOwner(database, before, ownerOfUnnamed(database));
    if (dictionary != NoRecord)
        setOwner(database, dictionary, {database.record(record).handle});
}

} // namespace drawing
