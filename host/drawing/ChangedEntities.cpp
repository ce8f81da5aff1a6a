#include "host/drawing/ChangedEntities.h"

#include "host/drawing/Blocks.h"

#include <algorithm>
#include <array>

namespace drawing {

namespace {

constexpr std::array<std::string_view, 3> SeenVariables = {"$LTSCALE", "$PDMODE", "$PDSIZE"};

// What makes nothing of the model look otherwise: a variable that is not seen, and marks, which change when their
// neighbours do.
bool isUnseen(const Database &database, const Record &record)
{
    if (record.kind == RecordKind::HeaderVariable)
        return std::find(SeenVariables.begin(), SeenVariables.end(), database.names().text(record.name)) ==
               SeenVariables.end();
    return record.isEnd() || record.kind == RecordKind::SectionStart;
}

} // namespace

std::optional<std::vector<RecordId>> changedEntities(const Drawing &drawing, std::span<const RecordId> records)
{
    const Database &database = drawing.database();
    const RecordId model = drawing.tables().find(known::Block, ModelSpace);
    const RecordId section = database.section(known::Entities);
    std::vector<RecordId> entities;
    for (const RecordId changed : records) {
        const RecordId id = database.isPart(changed) ? database.record(changed).container : changed;
        const Record &record = database.record(id);
        if (record.kind == RecordKind::Entity && (record.container == section || record.container == model))
            entities.push_back(id);
        else if (!isUnseen(database, record))
            return std::nullopt;
    }
    std::sort(entities.begin(), entities.end());
    entities.erase(std::unique(entities.begin(), entities.end()), entities.end());
    return entities;
}

} // namespace drawing
