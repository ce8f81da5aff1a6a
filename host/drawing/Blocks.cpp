#include "host/drawing/Blocks.h"

#include "host/drawing/Dictionaries.h"

#include <QString>

namespace drawing {

namespace {

constexpr int FlagsCode = 70, SecondNameCode = 3, PathCode = 1;

std::optional<Handle> addBlockRecord(Database &database, SymbolTables &tables, const std::u16string &name)
{
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
    if (block.name.empty() || tables.find(known::Block, block.name) != NoRecord)
        return NoRecord;
    Handle owner;
    if (!database.isBefore2000()) {
        const std::optional<Handle> added = addBlockRecord(database, tables, block.name);
        if (!added)
            return NoRecord;
        owner = *added;
    }
    const RecordId section = database.ensureSection(known::Blocks);
    const RecordId before = database.endOf(section);
    GroupList groups = markGroups(database, u"BLOCK", owner, block);
    groups.insert(groups.end(), {{groupcode::Name, block.name},
                                 {FlagsCode, block.flags},
                                 {groupcode::FirstX, block.basePoint},
                                 {SecondNameCode, block.name},
                                 {PathCode, u""}});
    const RecordId start = database.add(RecordKind::BlockStart, groups, before);
    if (start != NoRecord)
        database.add(RecordKind::BlockEnd, markGroups(database, u"ENDBLK", owner, block), before);
    return start;
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

std::u16string freeBlockName(const SymbolTables &tables, std::u16string_view prefix)
{
    for (int number = 1;; ++number) {
        std::u16string name = std::u16string(prefix) + QString::number(number).toStdU16String();
        if (tables.find(known::Block, name) == NoRecord)
            return name;
    }
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

bool isInSpace(const Record &entity, Space space)
{
    return entity.has(Record::PaperSpace) == (space == Space::Paper);
}

RecordId lastEntity(const Database &database)
{
    const RecordId section = database.section(known::Entities);
    if (section == NoRecord)
        return NoRecord;
    RecordId last = NoRecord;
    const RecordId end = database.knownEndOf(section);
    if (end == NoRecord) { // a cut file
        for (RecordId id = database.firstIn(section); id != NoRecord; id = database.nextIn(id))
            if (!database.record(id).isGone() && !database.isPart(id))
                last = id;
        return last;
    }
    last = database.record(end).previous;
    while (last != section && (database.record(last).isGone() || database.isPart(last)))
        last = database.record(last).previous;
    return last != section ? last : NoRecord;
}

} // namespace drawing
