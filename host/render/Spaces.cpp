#include "host/render/Spaces.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/DrawOrder.h"

namespace render {

using drawing::NoRecord;
using drawing::RecordId;

namespace {

enum class Space { Model, Paper, Any };

bool isShown(const drawing::Database &database, RecordId id, Space space)
{
    const drawing::Record &record = database.record(id);
    const bool isWanted = space == Space::Any || record.has(drawing::Record::PaperSpace) == (space == Space::Paper);
    return record.kind == drawing::RecordKind::Entity && !record.isGone() && isWanted && !database.isPart(id);
}

void addFrom(const drawing::Database &database, RecordId container, Space space, std::vector<RecordId> &entities)
{
    if (container == NoRecord)
        return;
    for (RecordId id = database.firstIn(container); id != NoRecord; id = database.nextIn(id))
        if (isShown(database, id, space))
            entities.push_back(id);
}

std::vector<RecordId> entitiesOf(const drawing::Drawing &drawing, std::u16string_view block, Space space)
{
    const drawing::Database &database = drawing.database();
    std::vector<RecordId> entities;
    addFrom(database, database.section(drawing::known::Entities), space, entities);
    addFrom(database, drawing.tables().find(drawing::known::Block, block), Space::Any, entities);
    drawing::sortForDrawing(database, drawing.tables().find(drawing::known::BlockRecord, block), entities);
    return entities;
}

} // namespace

std::vector<RecordId> modelEntities(const drawing::Drawing &drawing)
{
    return entitiesOf(drawing, drawing::ModelSpace, Space::Model);
}

bool isInModel(const drawing::Drawing &drawing, RecordId entity)
{
    const drawing::Database &database = drawing.database();
    const RecordId container = database.record(entity).container;
    const RecordId block = drawing.tables().find(drawing::known::Block, drawing::ModelSpace);
    return (container == database.section(drawing::known::Entities) && isShown(database, entity, Space::Model)) ||
           (container == block && isShown(database, entity, Space::Any));
}

std::vector<RecordId> activePaperEntities(const drawing::Drawing &drawing)
{
    return entitiesOf(drawing, drawing::PaperSpace, Space::Paper);
}

std::vector<RecordId> paperEntities(const drawing::Drawing &drawing, const drawing::Layout &layout)
{
    const drawing::Database &database = drawing.database();
    if (layout.blockRecord == NoRecord)
        return {};
    const std::u16string block = database.name(layout.blockRecord);
    if (drawing.tables().find(drawing::known::BlockRecord, drawing::PaperSpace) == layout.blockRecord)
        return activePaperEntities(drawing);
    std::vector<RecordId> entities;
    addFrom(database, drawing.tables().find(drawing::known::Block, block), Space::Any, entities);
    drawing::sortForDrawing(database, layout.blockRecord, entities);
    return entities;
}

} // namespace render
