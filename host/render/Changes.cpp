#include "host/render/Changes.h"

#include "host/drawing/Blocks.h"

#include <algorithm>

namespace render {

using drawing::Record;
using drawing::RecordId;
using drawing::RecordKind;

namespace {

// What changes along with something else, which tells all that matters: its place in the order of the records.
bool isMark(const Record &record)
{
    return record.isEnd() || record.kind == RecordKind::SectionStart || record.kind == RecordKind::BlockStart;
}

} // namespace

std::optional<std::vector<RecordId>> changedModelEntities(const drawing::Drawing &drawing,
                                                          std::span<const RecordId> records)
{
    const drawing::Database &database = drawing.database();
    const RecordId model = drawing.tables().find(drawing::known::Block, drawing::ModelSpace);
    const RecordId section = database.section(drawing::known::Entities);
    std::vector<RecordId> entities;
    for (const RecordId changed : records) {
        const RecordId id = database.isPart(changed) ? database.record(changed).container : changed;
        const Record &record = database.record(id);
        if (record.kind == RecordKind::Entity && (record.container == section || record.container == model)) {
            if (record.container == model || !record.has(Record::PaperSpace))
                entities.push_back(id);
        } else if (!isMark(record)) {
            return std::nullopt;
        }
    }
    std::sort(entities.begin(), entities.end());
    entities.erase(std::unique(entities.begin(), entities.end()), entities.end());
    return entities;
}

} // namespace render
