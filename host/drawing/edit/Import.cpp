#include "host/drawing/edit/Import.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/RawValues.h"
#include "host/drawing/edit/DimensionParts.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/Transform.h"
#include "host/drawing/entities/EntityChange.h"
#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/entities/EntityPlace.h"
#include "host/drawing/entities/RecordTypes.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

namespace drawing {

namespace {

constexpr int FlagsCode = 70, LayoutCode = 410, LeaderAnnotationCode = 340, ExtendedHandleCode = 1005;
constexpr std::int64_t AnonymousFlag = 1, AttributesFlag = 2; // of blocks; others tell of external references

bool isAnonymous(const std::u16string &block)
{
    return block.starts_with(u'*');
}

// The block that an entity shows.
std::u16string shownBlock(const GroupList &entity)
{
    const std::u16string type = textOf(entity, groupcode::Type);
    return type == u"INSERT" || type == u"DIMENSION" ? textOf(entity, groupcode::Name) : std::u16string();
}

std::vector<RecordId> modelOf(const Drawing &drawing)
{
    return entitiesIn(drawing.database(), drawing.database().section(known::Entities), Space::Model);
}

// A solid whose shape the file keeps elsewhere.
bool lacksItsShape(const GroupList &entity)
{
    return std::ranges::find(entity, Group{groupcode::Subclass, u"AcDbModelerGeometry"}) != entity.end() &&
           !hasGroup(entity, groupcode::PrimaryText);
}

// Plot styles, materials, visual styles and a solid's history, without which an object is much the same.
bool isDispensable(int code)
{
    return code == 347 || code == 348 || code == 350 || code == 390;
}

// A hatch no longer follows the objects about it, nor does a leader move with its text.
void dropAssociations(GroupList &entity)
{
    constexpr int SourcesCode = 97, AssociativeCode = 71, LeaderKindCode = 73;
    constexpr std::int64_t WithoutAnnotation = 3;
    const std::u16string type = textOf(entity, groupcode::Type);
    if (type == u"LEADER" && hasGroup(entity, LeaderAnnotationCode)) {
        removeGroups(entity, LeaderAnnotationCode);
        setGroup(entity, integerGroup(LeaderKindCode, WithoutAnnotation));
    }
    if (type != u"HATCH")
        return;
    setGroup(entity, integerGroup(AssociativeCode, 0));
    for (auto group = entity.begin(); group != entity.end();) {
        const auto sources =
            std::find_if(group + 1, entity.end(), [](const Group &one) { return one.code != groupcode::Owner; });
        if (group->code == SourcesCode && sources != group + 1)
            group->value = std::int64_t{0};
        group = group->code == SourcesCode ? entity.erase(group + 1, sources) : group + 1;
    }
}

// A linetype without its letters and shapes.
GroupList plainLinetype(const GroupList &linetype)
{
    constexpr int DashCode = 49, ElementCode = 74;
    GroupList plain;
    for (const Group &group : linetype) {
        if (group.code == 9 || group.code == 46 || group.code == 50 || group.code == 44 || group.code == 45 ||
            group.code == ElementCode || group.code == 75 || group.code == 340)
            continue;
        plain.push_back(group);
        if (group.code == DashCode)
            plain.push_back(integerGroup(ElementCode, 0));
    }
    return plain;
}

class Importing
{
public:
    Importing(Drawing &target, const Drawing &source)
        : m_target(target), m_source(source), m_database(target.database()), m_from(source.database())
    {
    }

    Import run(const std::u16string &name)
    {
        for (const NameId table : {known::Application, known::Style, known::Linetype, known::Layer})
            importTable(table);
        const std::vector<RecordId> model = modelOf(m_source);
        m_blocks[folded(name)] = name;
        m_import.block = defineBlock(m_database, m_target.tables(), {name, basePoint(), flagsOf(model)});
        if (m_import.block == NoRecord)
            return m_import;
        m_unfilled.push_back({model, m_import.block});
        for (const RecordId block : m_source.tables().entries(known::Block))
            if (const std::u16string title = m_from.name(block); !isAnonymous(title) && !isSpaceBlock(m_from, title))
                importBlock(block, title);
        importTable(known::DimensionStyle);
        for (std::size_t next = 0; next < m_unfilled.size(); ++next) // anonymous blocks come along with what shows them
            fill(std::vector<RecordId>(m_unfilled[next].entities), m_unfilled[next].block);
        translateExtendedHandles();
        return m_import;
    }

private:
    struct Unfilled
    {
        std::vector<RecordId> entities; // of the source
        RecordId block;
    };

    Point basePoint() const
    {
        const std::optional<Group> base = variable(m_from, "$INSBASE");
        const auto *point = base ? std::get_if<Point>(&base->value) : nullptr;
        return point ? *point : Point();
    }

    std::int64_t flagsOf(const std::vector<RecordId> &entities) const
    {
        const bool hasAttributes =
            std::ranges::any_of(entities, [this](RecordId entity) { return m_from.type(entity) == u"ATTDEF"; });
        return hasAttributes ? AttributesFlag : 0;
    }

    // --- tables ---

    void importTable(NameId table)
    {
        for (const RecordId record : m_source.tables().entries(table)) {
            const std::u16string name = m_from.name(record);
            if (name.empty() || m_target.tables().find(table, name) != NoRecord)
                continue;
            const GroupList original = m_from.groups(record);
            GroupList groups = groupsForCopy(original);
            const bool isWhole = translateHandles(groups);
            if (table == known::DimensionStyle)
                takeArrows(groups, original);
            remember(record,
                     addTableRecord(m_target, table == known::Linetype && !isWhole ? plainLinetype(groups) : groups));
        }
    }

    // Before R2000 dimension styles name the blocks of their arrows, the first where other records have their handle;
    // later they point to them.
    void takeArrows(GroupList &style, const GroupList &original) const
    {
        struct Arrow
        {
            int name, pointer;
        };
        constexpr Arrow arrows[] = {{groupcode::Handle, 342}, {6, 343}, {7, 344}};
        for (const auto &[name, pointer] : arrows) {
            const Group *named = findGroup(original, name);
            const RecordId block = m_target.tables().find(known::BlockRecord, textOf(original, name));
            removeGroups(style, name);
            if (named && namesArrows(m_database))
                setGroup(style, *named);
            else if (block != NoRecord && !hasGroup(style, pointer))
                setGroup(style, {pointer, Handle{m_database.record(block).handle}});
        }
    }

    // To the record of the same name; none: it is of nothing that came along.
    std::optional<Handle> translated(Handle handle) const
    {
        const RecordId record = handle.value != 0 ? m_from.find(handle) : NoRecord;
        if (record == NoRecord)
            return handle.value == 0 ? std::optional(handle) : std::nullopt;
        if (m_from.record(record).kind != RecordKind::TableRecord)
            return std::nullopt;
        const NameId table = m_from.record(record).type;
        std::u16string name = m_from.name(record);
        if (const auto block = m_blocks.find(folded(name)); table == known::BlockRecord && block != m_blocks.end())
            name = block->second;
        const RecordId there = name.empty() ? NoRecord : m_target.tables().find(table, name);
        return there != NoRecord ? std::optional(Handle{m_database.record(there).handle}) : std::nullopt;
    }

    // Whether nothing is lost that the record needs. What points elsewhere goes; the owner is given later.
    bool translateHandles(GroupList &groups) const
    {
        bool isWhole = true;
        const auto isLost = [&](Group &group) {
            auto *handle = std::get_if<Handle>(&group.value);
            if (!handle || group.code == groupcode::Owner)
                return false;
            const std::optional<Handle> there = translated(*handle);
            *handle = there.value_or(Handle{0});
            if (there)
                return false;
            isWhole = isWhole && isDispensable(group.code);
            return true;
        };
        for (auto group = groups.begin(); group != groups.end();)
            group = isLost(*group) ? groups.erase(group) : group + 1;
        return isWhole;
    }

    // --- handles in extended data, which are translated when all that they may point to is there ---

    void remember(RecordId original, RecordId copy)
    {
        if (copy == NoRecord)
            return;
        m_copies[original] = copy;
        if (m_from.firstGroup(original, ExtendedHandleCode))
            m_withHandles.push_back(copy);
    }

    void translateExtendedHandles()
    {
        for (const RecordId copy : m_withHandles) {
            GroupList groups = m_database.groups(copy);
            for (Group &group : groups)
                if (const auto *text = std::get_if<std::u16string>(&group.value);
                    text && group.code == ExtendedHandleCode)
                    group.value = pointedTo(*text);
            m_database.replace(copy, groups);
        }
    }

    Handle pointedTo(const std::u16string &text) const
    {
        if (!m_from.writesHandles() || !m_database.writesHandles())
            return {};
        const Handle handle{handleOf(text)};
        const auto copy = m_copies.find(m_from.find(handle));
        return copy != m_copies.end() ? Handle{m_database.record(copy->second).handle}
                                      : translated(handle).value_or(Handle{});
    }

    // --- blocks ---

    void importBlock(RecordId block, const std::u16string &name)
    {
        if (m_blocks.count(folded(name)) != 0)
            return;
        const RecordId there = isAnonymous(name) ? NoRecord : m_target.tables().find(known::Block, name);
        if (there != NoRecord) {
            m_blocks[folded(name)] = m_database.name(there);
            m_import.heldOnto.push_back(m_database.name(there));
            return;
        }
        const std::u16string wanted =
            isAnonymous(name) ? freeBlockName(m_target.tables(), std::u16string_view(name).substr(0, 2)) : name;
        const GroupList groups = m_from.groups(block);
        const auto *base = findValue<Point>(groups, groupcode::FirstX);
        const std::int64_t flags = integerOf(groups, FlagsCode) & (AnonymousFlag | AttributesFlag);
        const RecordId added =
            addBlock(m_database, m_target.tables(),
                     {wanted, base ? *base : Point(), flags, textOf(groups, groupcode::Layer, u"0")});
        if (added == NoRecord)
            return;
        m_blocks[folded(name)] = wanted;
        m_unfilled.push_back({entitiesIn(m_from, block), added});
    }

    // False: it is not to be had.
    bool translateBlock(GroupList &entity)
    {
        const std::u16string name = shownBlock(entity);
        if (name.empty())
            return true;
        if (const RecordId block = m_source.tables().find(known::Block, name);
            block != NoRecord && !isSpaceBlock(m_from, name))
            importBlock(block, name);
        const auto there = m_blocks.find(folded(name));
        if (there != m_blocks.end())
            setGroup(entity, textGroup(groupcode::Name, there->second));
        return there != m_blocks.end();
    }

    // --- entities ---

    void fill(const std::vector<RecordId> &entities, RecordId block)
    {
        const Handle owner = ownerOf(m_database, m_target.tables(), block, false);
        for (const RecordId entity : entities)
            if (!import(entity, owner, block))
                ++m_import.left;
    }

    bool import(RecordId entity, Handle owner, RecordId block)
    {
        GroupList groups = m_from.groups(entity);
        if (!isEntityType(m_database, textOf(groups, groupcode::Type)) || lacksItsShape(groups))
            return false;
        dropAssociations(groups);
        groups = groupsForCopy(std::move(groups));
        if (!translateBlock(groups) || !translateHandles(groups))
            return false;
        if (!hasOneEra() && textOf(groups, groupcode::Type) == u"DIMENSION")
            groups = withDimensionParts(groups);
        const RecordId whole =
            hasOneEra() ? append(std::move(groups), owner, block) : addEntity(m_target, groups, {block, false, u"0"});
        if (whole == NoRecord)
            return false;
        remember(entity, whole);
        RecordId last = whole;
        for (const RecordId part : partsOf(m_from, entity)) {
            GroupList own = groupsForCopy(m_from.groups(part));
            translateHandles(own);
            const RecordId added = hasOneEra() ? append(std::move(own), {m_database.record(whole).handle}, block)
                                               : addPartBehind(m_target, last, whole, own);
            remember(part, added);
            last = added != NoRecord ? added : last;
        }
        return true;
    }

    // Whether both have subclass markers and owners, or neither.
    bool hasOneEra() const { return m_database.isBefore2000() == m_from.isBefore2000(); }

    RecordId append(GroupList groups, Handle owner, RecordId block)
    {
        removeGroups(groups, groupcode::Space);
        removeGroups(groups, LayoutCode);
        std::erase_if(groups, [](const Group &group) { return group.code == groupcode::Owner; });
        const Group owned{groupcode::Owner, owner};
        if (owner.value != 0 && !m_database.isBefore2000())
            groups.insert(groups.begin() + 1, owned);
        const RecordId added = m_database.add(RecordKind::Entity, groups, m_database.endOf(block));
        if (added != NoRecord)
            ensureLayer(m_target, m_database.name(added));
        return added;
    }

    Drawing &m_target;
    const Drawing &m_source;
    Database &m_database; // the target's
    const Database &m_from;
    std::map<std::u16string, std::u16string> m_blocks; // by their folded names in the source, what they are called here
    std::vector<Unfilled> m_unfilled;
    std::unordered_map<RecordId, RecordId> m_copies; // of the source's records
    std::vector<RecordId> m_withHandles;             // those of the copies that have handles in their extended data
    Import m_import;
};

} // namespace

Import importAsBlock(Drawing &drawing, const Drawing &source, const std::u16string &name)
{
    return Importing(drawing, source).run(name);
}

bool canTake(const Drawing &drawing, const Drawing &source)
{
    return !drawing.database().isBefore2000() || source.database().isBefore2000();
}

bool wouldShowItself(const Drawing &drawing, const Drawing &source, const std::u16string &name)
{
    std::vector<std::vector<RecordId>> containers{modelOf(source)};
    std::set<std::u16string> met;
    for (std::size_t next = 0; next < containers.size(); ++next)
        for (const RecordId entity : std::vector<RecordId>(containers[next])) {
            const std::u16string shown = shownBlock(source.database().groups(entity));
            if (shown.empty() || !met.insert(folded(shown)).second)
                continue;
            if (folded(shown) == folded(name))
                return true;
            const bool isHere = !isAnonymous(shown) && drawing.tables().find(known::Block, shown) != NoRecord;
            if (isHere && showsBlock(drawing.database(), drawing.tables(), shown, name))
                return true;
            if (!isHere)
                containers.push_back(entitiesIn(source.database(), source.tables().find(known::Block, shown)));
        }
    return false;
}

} // namespace drawing
