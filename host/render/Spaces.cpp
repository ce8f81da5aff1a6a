#include "host/render/Spaces.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/DrawOrder.h"

namespace render {

using drawing::NoRecord;
using drawing::RecordId;
using drawing::Space;

namespace {

std::vector<RecordId> entitiesOf(const drawing::Drawing &drawing, std::u16string_view block, Space space)
{
    const drawing::Database &database = drawing.database();
    std::vector<RecordId> entities = entitiesIn(database, database.section(drawing::known::Entities), space);
    const std::vector<RecordId> ofBlock = entitiesIn(database, drawing.tables().find(drawing::known::Block, block));
    entities.insert(entities.end(), ofBlock.begin(), ofBlock.end());
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
    const drawing::Record &record = database.record(entity);
    if (record.kind != drawing::RecordKind::Entity || record.isGone() || database.isPart(entity))
        return false;
    const RecordId section = database.section(drawing::known::Entities);
    return (record.container == section && isInSpace(record, Space::Model)) ||
           record.container == drawing.tables().find(drawing::known::Block, drawing::ModelSpace);
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
    std::vector<RecordId> entities = entitiesIn(database, drawing.tables().find(drawing::known::Block, block));
    drawing::sortForDrawing(database, layout.blockRecord, entities);
    return entities;
}

} // namespace render
