#include "host/drawing/LayoutEditing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"

#include <algorithm>

namespace drawing {

namespace {

constexpr int LayoutNameCode = 1, TabCode = 71, LayoutHandleCode = 340, BlockNameCode = 3;

RecordId layoutDictionary(const Database &database)
{
    const RecordId root = namedObjects(database);
    return root != NoRecord ? findEntry(database, root, u"ACAD_LAYOUT") : NoRecord;
}

RecordId blockOf(const Drawing &drawing, const Layout &layout)
{
    return layout.blockRecord == NoRecord
               ? NoRecord
               : drawing.tables().find(known::Block, drawing.database().name(layout.blockRecord));
}

void setGroupOf(Database &database, RecordId record, int code, const std::u16string &text)
{
    GroupList groups = database.groups(record);
    const auto found =
        std::find_if(groups.begin(), groups.end(), [code](const Group &group) { return group.code == code; });
    if (found == groups.end())
        return;
    found->value = text;
    database.replace(record, groups);
}

void renameBlock(Database &database, RecordId blockRecord, RecordId block, const std::u16string &name)
{
    setGroupOf(database, blockRecord, groupcode::Name, name);
    setGroupOf(database, block, groupcode::Name, name);
    setGroupOf(database, block, BlockNameCode, name);
}

// Entities of a block of a layout need not say that they are on paper; those of the ENTITIES section must.
void putOnPaper(Database &database, RecordId entity)
{
    if (database.record(entity).has(Record::PaperSpace))
        return;
    GroupList groups = database.groups(entity);
    const auto layer =
        std::find_if(groups.begin(), groups.end(), [](const Group &group) { return group.code == groupcode::Layer; });
    groups.insert(layer, {groupcode::Space, std::int64_t{1}});
    database.replace(entity, groups);
}

// The layout's own part, behind the plot settings, which have the same codes.
void setOwnPart(GroupList &groups, const std::u16string &name, std::int64_t tab, Handle blockRecord)
{
    auto group = std::find_if(groups.begin(), groups.end(), [](const Group &one) {
        const auto *text = std::get_if<std::u16string>(&one.value);
        return one.code == groupcode::Subclass && text && *text == u"AcDbLayout";
    });
    for (; group != groups.end(); ++group) {
        if (group->code == LayoutNameCode)
            group->value = name;
        else if (group->code == TabCode)
            group->value = tab;
        else if (group->code == groupcode::Owner)
            group->value = blockRecord;
    }
}

// What belongs to the original alone: its extension dictionary, reactors, and the viewport that was used last.
GroupList copiedSettings(const Database &database, const Layout &original)
{
    constexpr int ViewportCode = 331;
    GroupList groups;
    bool isInBraces = false;
    for (const Group &group : database.groups(original.object)) {
        const auto *text = std::get_if<std::u16string>(&group.value);
        if (group.code == groupcode::Braces && text)
            isInBraces = text->starts_with(u'{');
        else if (!isInBraces && group.code != ViewportCode)
            groups.push_back(group);
    }
    return groups;
}

std::int64_t nextTab(const Database &database)
{
    std::int64_t last = 0;
    for (const Layout &layout : layouts(database))
        last = std::max(last, layout.tab);
    return last + 1;
}

bool ensureAnotherIsActive(Drawing &drawing, const Layout &layout)
{
    const std::optional<Layout> active = activeLayout(drawing);
    if (active && active->object != layout.object)
        return true;
    for (const Layout &other : layouts(drawing.database()))
        if (other.object != layout.object && !isModelName(other.name) && activateLayout(drawing, other))
            return true;
    return false;
}

} // namespace

bool activateLayout(Drawing &drawing, const Layout &layout)
{
    Database &database = drawing.database();
    const RecordId now = drawing.tables().find(known::BlockRecord, PaperSpace);
    const RecordId block = drawing.tables().find(known::Block, PaperSpace), other = blockOf(drawing, layout);
    if (now == NoRecord || block == NoRecord || other == NoRecord)
        return false;
    if (layout.blockRecord == now)
        return true;
    const RecordId section = ensureEntities(database);
    const std::u16string name = database.name(layout.blockRecord);
    for (const RecordId entity : entitiesIn(database, section, Space::Paper))
        database.move(entity, database.endOf(block));
    for (const RecordId entity : entitiesIn(database, other)) {
        database.move(entity, database.endOf(section));
        putOnPaper(database, entity);
    }
    renameBlock(database, now, block, name);
    renameBlock(database, layout.blockRecord, other, std::u16string(PaperSpace));
    return true;
}

std::optional<Layout> addLayout(Drawing &drawing, const Layout &original, const std::u16string &name)
{
    Database &database = drawing.database();
    const RecordId dictionary = layoutDictionary(database);
    if (dictionary == NoRecord || isModelName(name) || findLayout(database, name))
        return std::nullopt;
    const std::u16string blockName = freeBlockName(drawing.tables(), PaperSpace);
    if (addBlock(database, drawing.tables(), {blockName}) == NoRecord)
        return std::nullopt;
    const RecordId blockRecord = drawing.tables().find(known::BlockRecord, blockName);
    GroupList groups = copiedSettings(database, original);
    std::erase_if(groups, [](const Group &group) { return group.code == groupcode::Handle; });
    setOwnPart(groups, name, nextTab(database), {database.record(blockRecord).handle});
    const RecordId object = addObject(database, groups);
    if (object == NoRecord)
        return std::nullopt;
    const Handle handle{database.record(object).handle};
    putEntry(database, dictionary, name, handle);
    GroupList owner = database.groups(blockRecord);
    std::erase_if(owner, [](const Group &group) { return group.code == LayoutHandleCode; });
    owner.insert(owner.end(), Group{LayoutHandleCode, handle});
    database.replace(blockRecord, owner);
    return findLayout(database, name);
}

bool renameLayout(Drawing &drawing, const Layout &layout, const std::u16string &name)
{
    Database &database = drawing.database();
    const RecordId dictionary = layoutDictionary(database);
    const std::optional<Layout> taken = findLayout(database, name);
    if (dictionary == NoRecord || isModelName(name) || (taken && taken->object != layout.object))
        return false;
    GroupList groups = database.groups(layout.object);
    setOwnPart(groups, name, layout.tab, {database.record(layout.blockRecord).handle});
    database.replace(layout.object, groups);
    removeEntry(database, dictionary, layout.name);
    return putEntry(database, dictionary, name, {database.record(layout.object).handle});
}

bool deleteLayout(Drawing &drawing, const Layout &layout)
{
    Database &database = drawing.database();
    const RecordId dictionary = layoutDictionary(database), block = blockOf(drawing, layout);
    if (dictionary == NoRecord || block == NoRecord || !ensureAnotherIsActive(drawing, layout))
        return false;
    eraseBlock(database, drawing.tables(), block);
    removeEntry(database, dictionary, layout.name);
    eraseExtensionDictionary(database, layout.object);
    database.erase(layout.object);
    return true;
}

} // namespace drawing
