#include "host/drawing/selection/Candidates.h"

#include <unordered_map>

using drawing::Database;
using drawing::Drawing;
using drawing::NameId;
using drawing::NoRecord;
using drawing::Record;
using drawing::RecordId;

namespace selection {

namespace {

constexpr int FlagsCode = 70, ColorCode = 62, InvisibleCode = 60;
constexpr std::int64_t Frozen = 1, Locked = 4;

std::int64_t integerOf(const Database &database, RecordId record, int code)
{
    const std::optional<drawing::Group> group = database.firstGroup(record, code);
    const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return value ? *value : 0;
}

// Whether things on a layer are seen. A layer that is off has a negative colour.
class Layers
{
public:
    explicit Layers(const Drawing &drawing) : m_drawing(drawing) {}

    bool isVisible(NameId name)
    {
        const auto [known, isNew] = m_visible.try_emplace(name, true);
        if (isNew)
            known->second = look(name);
        return known->second;
    }

private:
    bool look(NameId name) const
    {
        const Database &database = m_drawing.database();
        const RecordId layer =
            m_drawing.tables().find(drawing::known::Layer, database.codec().decode(database.names().text(name)));
        return layer == NoRecord ||
               ((integerOf(database, layer, FlagsCode) & Frozen) == 0 && integerOf(database, layer, ColorCode) >= 0);
    }

    const Drawing &m_drawing;
    std::unordered_map<NameId, bool> m_visible;
};

} // namespace

std::vector<RecordId> allEntities(const Drawing &drawing)
{
    const Database &database = drawing.database();
    std::vector<RecordId> entities;
    const RecordId section = database.section(drawing::known::Entities);
    for (RecordId id = section != NoRecord ? database.firstIn(section) : NoRecord; id != NoRecord;
         id = database.nextIn(id)) {
        const Record &record = database.record(id);
        if (!record.isGone() && !database.isPart(id) && record.kind == drawing::RecordKind::Entity)
            entities.push_back(id);
    }
    return entities;
}

std::vector<RecordId> visibleEntities(const Drawing &drawing, Space space)
{
    const Database &database = drawing.database();
    Layers layers(drawing);
    std::vector<RecordId> entities = allEntities(drawing);
    std::erase_if(entities, [&](RecordId id) {
        const Record &record = database.record(id);
        return record.has(Record::PaperSpace) != (space == Space::Paper) || !layers.isVisible(record.name) ||
               integerOf(database, id, InvisibleCode) != 0;
    });
    return entities;
}

bool isOnLockedLayer(const Drawing &drawing, RecordId entity)
{
    const RecordId layer = drawing.tables().find(drawing::known::Layer, drawing.database().name(entity));
    return layer != NoRecord && (integerOf(drawing.database(), layer, FlagsCode) & Locked) != 0;
}

} // namespace selection
