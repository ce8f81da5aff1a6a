#include "host/drawing/entities/EntityChange.h"

#include "host/drawing/Dictionaries.h"
#include "host/drawing/entities/Attachments.h"
#include "host/drawing/entities/Braces.h"
#include "host/drawing/entities/EntitySchema.h"
#include "host/drawing/entities/ListedCodes.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

namespace drawing {

namespace {

// Where a group stands in the changed record: by its place in the old one, new ones behind the group before them.
struct Placed
{
    int origin, order;
    Group group;
};

bool isFlat(const std::vector<ListedGroup> &listed)
{
    return std::ranges::all_of(listed, [](const ListedGroup &one) {
        const auto *point = std::get_if<Point>(&one.group.value);
        return one.group.code != groupcode::FirstX || !point || point->dimensions == 2;
    });
}

class Change
{
public:
    // The first `headSize` groups of the listing stay as they are.
    Change(std::vector<ListedGroup> &&listed, std::size_t headSize, const GroupList &recorded,
           std::span<const Group> wanted, bool isEntity)
        : m_listed(std::move(listed)), m_isFlat(isFlat(m_listed)), m_recorded(recorded), m_head(headSize)
    {
        if (isEntity)
            findCommonEnd();
        for (std::size_t place = m_head; place < m_listed.size(); ++place)
            ++m_occurrences[m_listed[place].group.code];
        take(wanted);
    }

    GroupList result()
    {
        keepHead();
        keepWhatIsNotListed();
        placeWanted();
        std::stable_sort(m_placed.begin(), m_placed.end(), [](const Placed &left, const Placed &right) {
            return std::pair(left.origin, left.order) < std::pair(right.origin, right.order);
        });
        GroupList groups;
        for (Placed &placed : m_placed)
            groups.push_back(std::move(placed.group));
        return groups;
    }

private:
    // Where groups that any entity may have are put: at the end of the first subclass of an entity.
    void findCommonEnd()
    {
        for (std::size_t place = m_head; place < m_listed.size(); ++place) {
            const ListedGroup &listed = m_listed[place];
            const auto *marker = std::get_if<std::u16string>(&listed.group.value);
            const bool isMarker = listed.group.code == groupcode::Subclass && marker;
            if (isMarker && *marker != u"AcDbEntity")
                break;
            m_commonEnd = std::max(m_commonEnd, listed.origin);
        }
    }

    // From the list: what is not in the head and not between braces.
    void take(std::span<const Group> wanted)
    {
        const bool hasMarkers =
            std::ranges::any_of(wanted, [](const Group &group) { return group.code == groupcode::Subclass; });
        bool isInHead = hasMarkers;
        Braces braces;
        for (const Group &group : wanted) {
            if (group.code >= groupcode::ExtendedString)
                break;
            isInHead = isInHead && group.code != groupcode::Subclass;
            const bool isBetweenBraces = braces.enclose(group);
            if (isInHead || isBetweenBraces || isFixed(group.code))
                continue;
            m_wanted.push_back(&group);
            m_wantedCodes.insert(group.code);
        }
        m_replacesRepeated = std::ranges::any_of(m_wantedCodes, [this](int code) { return isRepeated(code); });
    }

    bool isRepeated(int code) const
    {
        const auto found = m_occurrences.find(code);
        return code != groupcode::Subclass && found != m_occurrences.end() && found->second > 1;
    }

    void keepHead()
    {
        for (std::size_t place = 0; place < m_head; ++place)
            keep(m_listed[place]);
    }

    void keep(ListedGroup &listed)
    {
        if (listed.origin != ListedGroup::Derived)
            m_placed.push_back({listed.origin, 0, recorded(listed)});
    }

    void keepWhatIsNotListed()
    {
        Braces braces;
        for (std::size_t place = m_head; place < m_listed.size(); ++place) {
            ListedGroup &listed = m_listed[place];
            const bool isBetweenBraces = braces.enclose(listed.group);
            const bool isGoverned =
                m_wantedCodes.count(listed.group.code) != 0 || (m_replacesRepeated && isRepeated(listed.group.code));
            if (isBetweenBraces || !isGoverned)
                keep(listed);
            else
                m_old[listed.group.code].push_back(&listed);
        }
    }

    void placeWanted()
    {
        std::map<int, std::size_t> seen;
        int last = firstOrigin(), order = 0;
        for (const Group *group : m_wanted) {
            const ListedGroup *old = counterpart(*group, seen);
            if (old && old->origin == ListedGroup::Derived && old->group == *group)
                continue;
            if (!old && m_commonEnd > 0 && isCommonCode(group->code)) {
                m_placed.push_back({m_commonEnd, static_cast<int>(m_placed.size()), inDegrees(*group)});
                continue;
            }
            if (!old || (isRepeated(group->code) && originOf(*old) <= last)) {
                ++order;
            } else {
                const int origin = originOf(*old);
                const bool isBehindIt = old->origin == ListedGroup::Derived;
                order = isBehindIt ? (origin == last ? order + 1 : 1) : 0;
                last = origin;
            }
            m_placed.push_back({last, order, old ? inRecord(*group, *old) : inDegrees(*group)});
        }
    }

    // The group's own place, or that of the one before it.
    int originOf(const ListedGroup &listed) const
    {
        const ListedGroup *recorded = &listed;
        while (recorded != m_listed.data() && recorded->origin == ListedGroup::Derived)
            --recorded;
        return std::max(recorded->origin, 0);
    }

    const Group &recorded(const ListedGroup &listed) const
    {
        return m_recorded[static_cast<std::size_t>(listed.origin)];
    }

    // As the record has it where it is unchanged. Programs may give three coordinates where there are two.
    Group inRecord(Group group, const ListedGroup &old) const
    {
        if (old.origin == ListedGroup::Derived)
            return inDegrees(std::move(group));
        if (group == old.group)
            return recorded(old);
        auto *point = std::get_if<Point>(&group.value);
        const auto *oldPoint = std::get_if<Point>(&recorded(old).value);
        if (point && oldPoint && oldPoint->dimensions == 2 && (point->z == 0 || m_isFlat))
            *point = {point->x, point->y, 0, 2};
        return inDegrees(std::move(group));
    }

    // New groups of a list that begins with one follow the head.
    int firstOrigin() const
    {
        int origin = 0;
        for (std::size_t place = 0; place < m_head; ++place)
            origin = std::max(origin, m_listed[place].origin);
        return origin;
    }

    // The old group that this one is the new state of: the first, second, … of the same code.
    const ListedGroup *counterpart(const Group &group, std::map<int, std::size_t> &seen)
    {
        const auto old = m_old.find(group.code);
        if (old == m_old.end())
            return nullptr;
        const std::size_t place = seen[group.code]++;
        return place < old->second.size() ? old->second[place] : nullptr;
    }

    std::vector<ListedGroup> m_listed;
    bool m_isFlat;               // points have two coordinates, whatever the list gives
    const GroupList &m_recorded; // what the origins count in
    std::size_t m_head;
    int m_commonEnd = 0; // 0: not an entity
    std::map<int, int> m_occurrences;
    std::vector<const Group *> m_wanted;
    std::set<int> m_wantedCodes;
    bool m_replacesRepeated = false;
    std::map<int, std::vector<ListedGroup *>> m_old; // those that the list has a say in
    std::vector<Placed> m_placed;
};

// A polyline says how many points it has.
void countVertices(GroupList &groups)
{
    const auto *type = findValue<std::u16string>(groups, groupcode::Type);
    if (!type || *type != u"LWPOLYLINE")
        return;
    const auto count = std::ranges::count(groups, groupcode::FirstX, &Group::code);
    for (Group &group : groups)
        if (group.code == groupcode::VertexCount)
            group.value = static_cast<std::int64_t>(count);
}

// The old extended data with that of the list's applications replaced.
void putExtendedData(GroupList &groups, const GroupList &old, const GroupList &wanted)
{
    const auto isExtended = [](const Group &group) { return group.code >= groupcode::ExtendedString; };
    const auto newBegin = std::ranges::find_if(wanted, isExtended);
    std::set<std::u16string> applications;
    for (auto group = newBegin; group != wanted.end(); ++group)
        if (group->code == groupcode::Application)
            applications.insert(folded(std::get<std::u16string>(group->value)));
    bool isKept = true;
    for (auto group = std::ranges::find_if(old, isExtended); group != old.end(); ++group) {
        if (group->code == groupcode::Application)
            isKept = applications.count(folded(std::get<std::u16string>(group->value))) == 0;
        if (isKept)
            groups.push_back(*group);
    }
    for (auto group = newBegin; group != wanted.end(); ++group) {
        const bool isAlone = group->code == groupcode::Application &&
                             (group + 1 == wanted.end() || (group + 1)->code == groupcode::Application);
        if (!isAlone)
            groups.push_back(*group);
    }
}

// What stands in an embedded object has codes of its own, which mean other things: each part is changed by its part of
// the list, and stays where the list has none.
GroupList changedParts(const EntityListing &listing, const GroupList &recorded, const GroupList &wanted, bool isEntity)
{
    std::vector<ListedGroup> own = decoded(listing);
    const auto codeOf = [](const ListedGroup &listed) { return listed.group.code; };
    const auto embedded = std::ranges::find(own, groupcode::EmbeddedObject, codeOf);
    std::vector<ListedGroup> listed(std::make_move_iterator(embedded), std::make_move_iterator(own.end()));
    own.erase(embedded, own.end());
    const std::size_t headSize = std::min(listing.headSize(), own.size()); // some file has the object in the head
    const std::span all(wanted);
    const auto place =
        listed.empty() ? wanted.end() : std::ranges::find(wanted, groupcode::EmbeddedObject, &Group::code);
    const auto ownCount = static_cast<std::size_t>(place - wanted.begin());
    GroupList changed = Change(std::move(own), headSize, recorded, all.first(ownCount), isEntity).result();
    const GroupList changedEmbedded = Change(std::move(listed), 0, recorded, all.subspan(ownCount), false).result();
    changed.insert(changed.end(), changedEmbedded.begin(), changedEmbedded.end());
    return changed;
}

bool changeGroups(Drawing &drawing, RecordId record, const GroupList &wanted)
{
    Database &database = drawing.database();
    if (!canAttach(drawing, record, wanted))
        return false;
    const bool isEntity = database.record(record).kind == RecordKind::Entity;
    const RecordId dictionary = extensionDictionary(database, record);
    const GroupList recorded = database.groups(record);
    GroupList changed = changedParts(EntityListing(drawing, record), recorded, wanted, isEntity);
    countVertices(changed);
    putExtendedData(changed, recorded, wanted);
    putAttachments(changed, wanted);
    if (!database.replace(record, changed))
        return false;
    ownExtensionDictionary(database, record, dictionary);
    return true;
}

// Makes the change. A layer that an entity is on from then on is there.
template <class Change> bool changeWithLayer(Drawing &drawing, RecordId record, Change change)
{
    const Database &database = drawing.database();
    const NameId oldName = database.record(record).name;
    if (!change())
        return false;
    if (database.record(record).kind == RecordKind::Entity && database.record(record).name != oldName)
        ensureLayer(drawing, database.name(record));
    return true;
}

} // namespace

bool changeRecord(Drawing &drawing, RecordId record, const GroupList &wanted)
{
    return changeWithLayer(drawing, record, [&] {
        return changeValues(drawing, record, wanted) || changeGroups(drawing, record, wanted);
    });
}

bool changeRecord(Drawing &drawing, RecordId record, const ValueChanges &changes)
{
    return changeWithLayer(drawing, record, [&] { return changeValues(drawing, record, changes); });
}

void ensureLayer(Drawing &drawing, const std::u16string &name)
{
    if (name.empty() || drawing.tables().find(known::Layer, name) != NoRecord)
        return;
    constexpr int FlagsCode = 70, ColorCode = 62, LinetypeCode = 6;
    constexpr std::int64_t White = 7;
    GroupList groups{{groupcode::Type, u"LAYER"}};
    Database &database = drawing.database();
    if (!database.isBefore2000()) {
        const RecordId table = drawing.tables().ensureTable(known::Layer);
        groups.insert(groups.end(), {{groupcode::Owner, Handle{database.record(table).handle}},
                                     {groupcode::Subclass, u"AcDbSymbolTableRecord"},
                                     {groupcode::Subclass, u"AcDbLayerTableRecord"}});
    }
    groups.insert(
        groups.end(),
        {{groupcode::Name, name}, {FlagsCode, std::int64_t{0}}, {ColorCode, White}, {LinetypeCode, u"Continuous"}});
    drawing.tables().add(known::Layer, groups);
}

} // namespace drawing
