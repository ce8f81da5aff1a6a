#include "host/drawing/Blocks.h"

#include "host/drawing/Dictionaries.h"
#include "host/drawing/GroupWriter.h"

#include <QString>

#include <set>

namespace drawing {

namespace {

constexpr int FlagsCode = 70, SecondNameCode = 3, PathCode = 1;

// The owner of what stands in the block; none when it cannot be written, a null handle before R2000.
std::optional<Handle> addBlockRecord(Database &database, SymbolTables &tables, const std::u16string &name)
{
    if (database.isBefore2000())
        return Handle{0};
    const RecordId table = tables.ensureTable(known::BlockRecord);
    const RecordId record = tables.add(known::BlockRecord, {{groupcode::Type, u"BLOCK_RECORD"},
                                                            {groupcode::Owner, Handle{database.record(table).handle}},
                                                            {groupcode::Subclass, u"AcDbSymbolTableRecord"},
                                                            {groupcode::Subclass, u"AcDbBlockTableRecord"},
                                                            {groupcode::Name, name}});
    if (record == NoRecord)
        return std::nullopt;
    return Handle{database.record(record).handle};
}

// The groups that the start and the end of a block begin with.
GroupList markGroups(const Database &database, std::u16string type, Handle owner, const BlockDefinition &block)
{
    if (database.isBefore2000())
        return {{groupcode::Type, type}, {groupcode::Layer, block.layer}};
    const std::u16string subclass = type == u"BLOCK" ? u"AcDbBlockBegin" : u"AcDbBlockEnd";
    return {{groupcode::Type, std::move(type)},
            {groupcode::Owner, owner},
            {groupcode::Subclass, u"AcDbEntity"},
            {groupcode::Layer, block.layer},
            {groupcode::Subclass, subclass}};
}

GroupList startGroups(const Database &database, Handle owner, const BlockDefinition &block)
{
    GroupList groups = markGroups(database, u"BLOCK", owner, block);
    groups.insert(groups.end(), {{groupcode::Name, block.name},
                                 {FlagsCode, block.flags},
                                 {groupcode::FirstX, block.basePoint},
                                 {SecondNameCode, block.name},
                                 {PathCode, u""}});
    return groups;
}

// So that nothing of a block is added that cannot be added whole.
bool canBeWritten(const Database &database, const BlockDefinition &block)
{
    const GroupWriter writer(database.format(), database.codec());
    return writer.bytesOf(startGroups(database, {}, block)) &&
           writer.bytesOf(markGroups(database, u"ENDBLK", {}, block));
}

} // namespace

Handle ownerOf(const Database &database, const SymbolTables &tables, RecordId container, bool isPaperSpace)
{
    const Record &record = database.record(container);
    const std::u16string name = record.kind == RecordKind::BlockStart
                                    ? database.name(container)
                                    : std::u16string(isPaperSpace ? PaperSpace : ModelSpace);
    const RecordId owner = tables.find(known::BlockRecord, name);
    return {owner != NoRecord ? database.record(owner).handle : 0};
}

RecordId addBlock(Database &database, SymbolTables &tables, const BlockDefinition &block)
{
    if (block.name.empty() || tables.find(known::Block, block.name) != NoRecord || !canBeWritten(database, block))
        return NoRecord;
    const std::optional<Handle> owner = addBlockRecord(database, tables, block.name);
    if (!owner)
        return NoRecord;
    const RecordId section = database.ensureSection(known::Blocks);
    const RecordId before = database.endOf(section);
    const RecordId start = database.add(RecordKind::BlockStart, startGroups(database, *owner, block), before);
    database.add(RecordKind::BlockEnd, markGroups(database, u"ENDBLK", *owner, block), before);
    return start;
}

RecordId defineBlock(Database &database, SymbolTables &tables, const BlockDefinition &block)
{
    const RecordId start = tables.find(known::Block, block.name);
    if (start == NoRecord)
        return addBlock(database, tables, block);
    GroupList groups = database.groups(start);
    for (Group &group : groups) {
        if (group.code == groupcode::FirstX)
            group.value = block.basePoint;
        else if (group.code == FlagsCode)
            group.value = block.flags;
    }
    if (!database.replace(start, groups))
        return NoRecord;
    for (RecordId id = database.firstIn(start); id != NoRecord; id = database.nextIn(id))
        database.erase(id);
    return start;
}

bool showsBlock(const Database &database, const SymbolTables &tables, std::u16string_view block,
                std::u16string_view name)
{
    std::vector<std::u16string> shown{std::u16string(block)}; // in the order of their discovery
    std::set<std::u16string> met{folded(block)};
    for (std::size_t place = 0; place < shown.size(); ++place) {
        if (folded(shown[place]) == folded(name))
            return true;
        for (const RecordId entity : entitiesIn(database, tables.find(known::Block, shown[place]))) {
            const std::optional<Group> inserted = database.record(entity).type == known::Insert
                                                      ? database.firstGroup(entity, groupcode::Name)
                                                      : std::nullopt;
            const auto *text = inserted ? std::get_if<std::u16string>(&inserted->value) : nullptr;
            if (text && met.insert(folded(*text)).second)
                shown.push_back(*text);
        }
    }
    return false;
}

void eraseBlock(Database &database, const SymbolTables &tables, RecordId block)
{
    for (RecordId id = database.firstIn(block); id != NoRecord; id = database.nextIn(id))
        database.erase(id);
    if (const RecordId end = database.knownEndOf(block); end != NoRecord)
        database.erase(end);
    if (const RecordId owner = tables.find(known::BlockRecord, database.name(block)); owner != NoRecord) {
        eraseExtensionDictionary(database, owner);
        database.erase(owner);
    }
    database.erase(block);
}

// A number whose predecessor is taken: with thousands of dimensions, looking at one after the other takes too long.
std::u16string freeBlockName(const SymbolTables &tables, std::u16string_view prefix)
{
    const auto name = [prefix](int number) {
        return std::u16string(prefix) + QString::number(number).toStdU16String();
    };
    const auto isTaken = [&](int number) { return tables.find(known::Block, name(number)) != NoRecord; };
    int taken = 0, free = 1;
    for (; isTaken(free); free *= 2)
        taken = free;
    while (free - taken > 1) {
        const int middle = taken + (free - taken) / 2;
        (isTaken(middle) ? taken : free) = middle;
    }
    return name(free);
}

RecordId ensureEntities(Database &database)
{
    return database.ensureSection(known::Entities);
}

std::vector<RecordId> entitiesIn(const Database &database, RecordId container, std::optional<Space> space)
{
    std::vector<RecordId> entities;
    if (container == NoRecord)
        return entities;
    for (RecordId id = database.firstIn(container); id != NoRecord; id = database.nextIn(id)) {
        const Record &record = database.record(id);
        if (record.kind == RecordKind::Entity && !record.isGone() && !database.isPart(id) &&
            (!space || isInSpace(record, *space)))
            entities.push_back(id);
    }
    return entities;
}

std::vector<RecordId> partsOf(const Database &database, RecordId entity)
{
    std::vector<RecordId> parts;
    RecordId part = database.record(entity).next;
    for (; part != NoRecord && database.record(part).container == entity; part = database.record(part).next)
        if (!database.record(part).isGone())
            parts.push_back(part);
    return parts;
}

bool isInSpace(const Record &entity, Space space)
{
    return entity.has(Record::PaperSpace) == (space == Space::Paper);
}

RecordId entityBefore(const Database &database, RecordId id)
{
    const RecordId section = database.section(known::Entities);
    do
        id = database.record(id).previous;
    while (id != section && (database.record(id).isGone() || database.isPart(id)));
    return id != section ? id : NoRecord;
}

RecordId lastEntity(const Database &database)
{
    const RecordId section = database.section(known::Entities);
    if (section == NoRecord)
        return NoRecord;
    if (const RecordId end = database.knownEndOf(section); end != NoRecord)
        return entityBefore(database, end);
    RecordId last = NoRecord; // of a cut file
    for (RecordId id = database.firstIn(section); id != NoRecord; id = database.nextIn(id))
        if (!database.record(id).isGone() && !database.isPart(id))
            last = id;
    return last;
}

} // namespace drawing
