#include "host/drawing/entities/EntityListing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Layouts.h"
#include "host/drawing/entities/EntitySchema.h"

#include <algorithm>
#include <numbers>

namespace drawing {

namespace {

constexpr int LayoutCode = 410, ConstantWidthCode = 43, StartWidthCode = 40, EndWidthCode = 41;
constexpr std::u16string_view EntityMarker = u"AcDbEntity";
constexpr std::size_t UsualGroups = 16; // of an entity, at most; more only cost more

using Listing = std::vector<ListedGroup>;

const std::u16string *textOf(const Group &group)
{
    return std::get_if<std::u16string>(&group.value);
}

ListedGroup derived(int code, GroupValue value)
{
    return {{code, std::move(value)}};
}

// A subclass of a record: its marker and the groups behind it.
struct Section
{
    Listing groups; // the marker first, when there is one

    bool isOf(std::u16string_view marker) const
    {
        const Group &first = groups.front().group;
        return first.code == groupcode::Subclass && *textOf(first) == marker;
    }
};

class Lister
{
public:
    Lister(const Drawing &drawing, RecordId id)
        : m_drawing(drawing), m_id(id), m_record(drawing.database().record(id)),
          m_isEntity(m_record.kind == RecordKind::Entity || m_record.kind == RecordKind::BlockStart ||
                     m_record.kind == RecordKind::BlockEnd),
          m_schema(m_isEntity ? schemaOf(drawing.database().type(id), flags()) : nullptr)
    {
    }

    Listing list()
    {
        cut(m_drawing.database().groups(m_id));
        if (m_isEntity) {
            if (m_sections.empty())
                divide();
            completeCommonPart();
        }
        if (m_schema) {
            completeSubclasses();
            completePoints();
        }
        return joined();
    }

private:
    // Only types that come in several kinds are told apart by them.
    std::int64_t flags() const
    {
        if (m_record.type != known::Polyline && m_record.type != known::Vertex)
            return 0;
        const std::optional<Group> group = m_drawing.database().firstGroup(m_id, groupcode::Count);
        const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
        return value ? *value : 0;
    }

    // Into what stands before the first marker, and the subclasses.
    void cut(GroupList &&groups)
    {
        m_head.reserve(UsualGroups);
        m_sections.reserve(UsualGroups);
        for (std::size_t place = 0; place < groups.size() && groups[place].code < groupcode::ExtendedString; ++place) {
            ListedGroup listed{std::move(groups[place]), static_cast<int>(place)};
            if (listed.group.code == groupcode::Subclass && textOf(listed.group))
                beginSection(std::move(listed));
            else if (m_sections.empty())
                m_head.push_back(std::move(listed));
            else
                m_sections.back().groups.push_back(std::move(listed));
        }
    }

    void beginSection(ListedGroup &&marker)
    {
        Listing &groups = m_sections.emplace_back().groups;
        groups.reserve(UsualGroups);
        groups.push_back(std::move(marker));
    }

    // Drawings before R2000 have no markers: each group goes where the type's schema has it.
    void divide()
    {
        Listing all = std::move(m_head);
        m_head.clear();
        beginSection(derived(groupcode::Subclass, std::u16string(EntityMarker)));
        for (std::size_t index = 0; m_schema && index < m_schema->subclasses.size(); ++index)
            beginSection(derived(groupcode::Subclass, m_schema->subclasses[index].marker));
        for (ListedGroup &listed : all)
            listOf(listed.group.code).push_back(std::move(listed));
    }

    Listing &listOf(int code)
    {
        if (code == groupcode::Type || code == groupcode::Handle)
            return m_head;
        if (isCommonCode(code))
            return m_sections.front().groups;
        for (std::size_t index = 0; m_schema && index < m_schema->subclasses.size(); ++index)
            if (m_schema->subclasses[index].has(code))
                return m_sections[index + 1].groups;
        return m_sections.back().groups;
    }

    void completeCommonPart()
    {
        if (m_sections.empty() || !m_sections.front().isOf(EntityMarker))
            return;
        Listing &common = m_sections.front().groups;
        const auto has = [&common](int code) {
            return std::ranges::any_of(common, [code](const ListedGroup &one) { return one.group.code == code; });
        };
        auto place = common.begin() + 1;
        if (!has(groupcode::Space))
            place = common.insert(place, derived(groupcode::Space, std::int64_t{0})) + 1;
        else if (place != common.end() && place->group.code == groupcode::Space)
            ++place;
        std::u16string layout = has(LayoutCode) ? std::u16string() : layoutOf(m_drawing, m_id);
        if (!layout.empty())
            common.insert(place, derived(LayoutCode, std::move(layout)));
    }

    void completeSubclasses()
    {
        std::size_t next = 0;
        for (Section &section : m_sections) {
            if (next < m_schema->subclasses.size() && section.isOf(m_schema->subclasses[next].marker))
                complete(section.groups, m_schema->subclasses[next++]);
        }
    }

    // Puts each default that is missing behind the groups that come before it in the schema.
    static void complete(Listing &groups, const SubclassSchema &subclass)
    {
        std::size_t place = 1;
        for (const SchemaRow &row : subclass.rows) {
            if (row.repeatsAfterVertex)
                continue;
            const auto last = std::find_if(groups.rbegin(), groups.rend(),
                                           [&row](const ListedGroup &one) { return one.group.code == row.code; });
            if (last != groups.rend())
                place = static_cast<std::size_t>(groups.rend() - last);
            else if (row.presence == SchemaRow::Presence::Default)
                groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(place++),
                              derived(row.code, defaultValue(row)));
        }
        if (std::ranges::any_of(subclass.rows, &SchemaRow::repeatsAfterVertex))
            completeVertices(groups, subclass);
    }

    // The groups from one point to the next get what is missing there.
    static void completeVertices(Listing &groups, const SubclassSchema &subclass)
    {
        double width = 0;
        for (const ListedGroup &one : groups)
            if (one.group.code == ConstantWidthCode)
                width = std::get<double>(one.group.value);
        Listing complete;
        for (std::size_t place = 0; place < groups.size();) {
            const bool isVertex = groups[place].group.code == groupcode::FirstX;
            complete.push_back(std::move(groups[place++]));
            if (!isVertex)
                continue;
            const auto ends = [&subclass](int code) { return !repeats(subclass, code); };
            std::size_t end = place;
            while (end < groups.size() && !ends(groups[end].group.code))
                ++end;
            for (const SchemaRow &row : subclass.rows) {
                if (!row.repeatsAfterVertex)
                    continue;
                const auto found = std::find_if(groups.begin() + static_cast<std::ptrdiff_t>(place),
                                                groups.begin() + static_cast<std::ptrdiff_t>(end),
                                                [&row](const ListedGroup &one) { return one.group.code == row.code; });
                const bool isThere = found != groups.begin() + static_cast<std::ptrdiff_t>(end);
                const bool isWidth = row.code == StartWidthCode || row.code == EndWidthCode;
                complete.push_back(isThere ? std::move(*found)
                                           : derived(row.code, isWidth ? GroupValue(width) : defaultValue(row)));
            }
            place = end;
        }
        groups = std::move(complete);
    }

    // Points have three coordinates; those of polylines of light weight lie in their plane.
    void completePoints()
    {
        if (m_schema->type == std::u16string_view(u"LWPOLYLINE"))
            return;
        for (Section &section : m_sections)
            for (ListedGroup &listed : section.groups)
                if (auto *point = std::get_if<Point>(&listed.group.value))
                    point->dimensions = 3;
    }

    static bool repeats(const SubclassSchema &subclass, int code)
    {
        return std::ranges::any_of(subclass.rows,
                                   [code](const SchemaRow &row) { return row.repeatsAfterVertex && row.code == code; });
    }

    Listing joined()
    {
        Listing all;
        std::size_t count = m_head.size() + 1;
        for (const Section &section : m_sections)
            count += section.groups.size();
        all.reserve(count);
        moveOwnerForward(all);
        for (ListedGroup &listed : m_head)
            all.push_back(std::move(listed));
        for (Section &section : m_sections)
            std::ranges::move(section.groups, std::back_inserter(all));
        return all;
    }

    // Takes the type, and behind it the owner, which files have after the handle.
    void moveOwnerForward(Listing &all)
    {
        const auto owner = std::find_if(m_head.begin(), m_head.end(), [depth = 0](const ListedGroup &one) mutable {
            if (one.group.code == groupcode::Braces && textOf(one.group))
                depth += textOf(one.group)->starts_with(u'{') ? 1 : -1;
            return one.group.code == groupcode::Owner && depth == 0;
        });
        std::optional<ListedGroup> found;
        if (owner != m_head.end()) {
            found = std::move(*owner);
            m_head.erase(owner);
        } else if (const Handle handle = ownerOf(m_drawing, m_id); handle.value != 0) {
            found = derived(groupcode::Owner, handle);
        }
        if (!m_head.empty() && m_head.front().group.code == groupcode::Type) {
            all.push_back(std::move(m_head.front()));
            m_head.erase(m_head.begin());
        }
        if (found)
            all.push_back(std::move(*found));
    }

    const Drawing &m_drawing;
    RecordId m_id;
    const Record &m_record;
    bool m_isEntity;
    const EntitySchema *m_schema;
    Listing m_head;
    std::vector<Section> m_sections;
};

constexpr double HalfTurn = 180;

// Null for what is no angle.
double *angleOf(Group &group)
{
    constexpr int FirstAngle = 50, LastAngle = 58;
    return group.code >= FirstAngle && group.code <= LastAngle ? std::get_if<double>(&group.value) : nullptr;
}

} // namespace

Group inRadians(Group group)
{
    if (double *angle = angleOf(group))
        *angle *= std::numbers::pi / HalfTurn;
    return group;
}

Group inDegrees(Group group)
{
    if (double *angle = angleOf(group))
        *angle *= HalfTurn / std::numbers::pi;
    return group;
}

std::vector<ListedGroup> listing(const Drawing &drawing, RecordId record)
{
    std::vector<ListedGroup> listed = Lister(drawing, record).list();
    for (ListedGroup &one : listed)
        if (angleOf(one.group))
            one.group = inRadians(std::move(one.group));
    return listed;
}

std::u16string layoutOf(const Drawing &drawing, RecordId entity)
{
    const Database &database = drawing.database();
    const Record &record = database.record(entity);
    RecordId container = record.container;
    while (container != NoRecord && database.record(container).kind == RecordKind::Entity)
        container = database.record(container).container;
    if (container == NoRecord)
        return {};
    const bool isInBlock = database.record(container).kind == RecordKind::BlockStart;
    if (!isInBlock && !record.has(Record::PaperSpace))
        return u"Model";
    const std::u16string block = isInBlock ? database.name(container) : std::u16string(PaperSpace);
    const RecordId blockRecord = drawing.tables().find(known::BlockRecord, block);
    if (blockRecord != NoRecord)
        for (const Layout &layout : layouts(database))
            if (layout.blockRecord == blockRecord)
                return layout.name;
    return {};
}

Handle ownerOf(const Drawing &drawing, RecordId id)
{
    const Database &database = drawing.database();
    const Record &record = database.record(id);
    if (record.container == NoRecord)
        return {};
    if (record.kind == RecordKind::TableRecord)
        return {database.record(record.container).handle};
    if (database.record(record.container).kind == RecordKind::Entity) // a vertex or an attribute
        return {database.record(record.container).handle};
    if (record.kind == RecordKind::Entity)
        return ownerOf(database, drawing.tables(), record.container, record.has(Record::PaperSpace));
    return {};
}

} // namespace drawing
