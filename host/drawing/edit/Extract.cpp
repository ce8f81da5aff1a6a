#include "host/drawing/edit/Extract.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"
#include "host/drawing/DrawingWriter.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <unordered_set>

namespace drawing {

namespace {

using geometry::Matrix;

// All of the drawing as it would be read again. Its records have other numbers.
std::unique_ptr<Drawing> duplicate(const Drawing &drawing)
{
    const std::string bytes = writtenDrawing(drawing.database());
    return std::make_unique<Drawing>(
        std::make_unique<Database>(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))));
}

// The viewport of a sheet itself, which each layout has.
bool isSheet(const Database &database, RecordId entity)
{
    constexpr int NumberCode = 69;
    return database.type(entity) == u"VIEWPORT" && integerOf(database.groups(entity), NumberCode) == 1;
}

void eraseAll(Database &database, const std::vector<RecordId> &entities)
{
    for (const RecordId entity : entities)
        if (!isSheet(database, entity))
            database.erase(entity);
}

// The sheets, and groups and orders of what is no longer there.
void eraseOtherSpaces(Drawing &drawing)
{
    Database &database = drawing.database();
    for (const RecordId block : drawing.tables().entries(known::Block))
        if (folded(database.name(block)).starts_with(folded(PaperSpace)))
            eraseAll(database, entitiesIn(database, block));
    const RecordId root = namedObjects(database);
    const RecordId groups = root != NoRecord ? findEntry(database, root, u"ACAD_GROUP") : NoRecord;
    if (groups != NoRecord)
        for (const DictionaryEntry &entry : dictionaryEntries(database, groups)) {
            removeEntry(database, groups, entry.name);
            if (const RecordId group = database.find(entry.object); group != NoRecord)
                database.erase(group);
        }
    const RecordId model = drawing.tables().find(known::BlockRecord, ModelSpace);
    const RecordId dictionary = model != NoRecord ? extensionDictionary(database, model) : NoRecord;
    const RecordId order = dictionary != NoRecord ? findEntry(database, dictionary, u"ACAD_SORTENTS") : NoRecord;
    if (order != NoRecord) {
        removeEntry(database, dictionary, u"ACAD_SORTENTS");
        database.erase(order);
    }
}

void moveTo(Drawing &drawing, RecordId entity, const geometry::Vector &base)
{
    transformEntity(drawing, entity, {Matrix::translation(-base), false});
}

bool isInserted(const Drawing &drawing, const std::u16string &block)
{
    const Database &database = drawing.database();
    for (RecordId id = 1; id < database.recordCount(); ++id) {
        const Record &record = database.record(id);
        if (record.kind == RecordKind::Entity && record.type == known::Insert && !record.isGone() &&
            folded(textOf(database.groups(id), groupcode::Name)) == folded(block))
            return true;
    }
    return false;
}

} // namespace

std::unique_ptr<Drawing> extractedEntities(const Drawing &drawing, const std::vector<RecordId> &entities,
                                           const geometry::Vector &base)
{
    std::unique_ptr<Drawing> part = duplicate(drawing);
    Database &database = part->database();
    const std::unordered_set<RecordId> wanted(entities.begin(), entities.end());
    // Both have the same entities in the same order.
    const std::vector<RecordId> originals = entitiesIn(drawing.database(), drawing.database().section(known::Entities));
    const std::vector<RecordId> copies = entitiesIn(database, database.section(known::Entities));
    std::vector<EntityCopy> links;
    for (std::size_t place = 0; place < std::min(originals.size(), copies.size()); ++place) {
        if (wanted.count(originals[place]) == 0) {
            eraseAll(database, {copies[place]});
            continue;
        }
        RecordId kept = copies[place];
        if (database.record(kept).has(Record::PaperSpace)) {
            kept = copyEntity(*part, kept, {database.section(known::Entities), false});
            database.erase(copies[place]);
        }
        if (kept == NoRecord)
            continue;
        moveTo(*part, kept, base);
        links.push_back({copies[place], kept});
    }
    linkCopies(*part, links);
    eraseOtherSpaces(*part);
    return part;
}

std::unique_ptr<Drawing> extractedBlock(const Drawing &drawing, RecordId block)
{
    std::unique_ptr<Drawing> part = duplicate(drawing);
    Database &database = part->database();
    const std::u16string name = drawing.database().name(block);
    eraseAll(database, entitiesIn(database, database.section(known::Entities)));
    eraseOtherSpaces(*part);
    const RecordId copy = part->tables().find(known::Block, name);
    const geometry::Vector base = placeOf(database.groups(copy), groupcode::FirstX);
    std::vector<EntityCopy> links;
    for (const RecordId entity : entitiesIn(database, copy)) {
        const RecordId moved = copyEntity(*part, entity, {ensureEntities(database), false});
        if (moved == NoRecord)
            continue;
        moveTo(*part, moved, base);
        links.push_back({entity, moved});
    }
    linkCopies(*part, links);
    if (!isInserted(*part, name))
        eraseBlock(database, part->tables(), copy);
    return part;
}

} // namespace drawing
