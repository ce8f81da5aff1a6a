#include "host/drawing/LayoutViewports.h"

#include "host/drawing/Blocks.h"

namespace drawing {

namespace {

constexpr int NumberCode = 69, FlagsCode = 90, ViewCentreCode = 12, ViewHeightCode = 45;
constexpr int FrozenCode = 331, HardFrozenCode = 341, FrozenNameCode = 1003;
constexpr std::int64_t SheetNumber = 1, IsOff = 0x20000;

std::int64_t integer(const Database &database, RecordId record, int code)
{
    const std::optional<Group> group = database.firstGroup(record, code);
    const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return value ? *value : 0;
}

} // namespace

std::vector<RecordId> viewports(const Drawing &drawing)
{
    const Database &database = drawing.database();
    std::vector<RecordId> found = entitiesIn(database, database.section(known::Entities), Space::Paper);
    std::erase_if(found, [&](RecordId entity) { return !isViewport(drawing, entity); });
    return found;
}

bool isViewport(const Drawing &drawing, RecordId id)
{
    const Database &database = drawing.database();
    if (id == NoRecord)
        return false;
    const Record &record = database.record(id);
    return record.kind == RecordKind::Entity && record.has(Record::PaperSpace) && !record.isGone() &&
           record.container == database.section(known::Entities) && record.type == known::ViewportEntity &&
           viewportNumber(database, id) > SheetNumber && (integer(database, id, FlagsCode) & IsOff) == 0;
}

std::int64_t viewportNumber(const Database &database, RecordId viewport)
{
    return integer(database, viewport, NumberCode);
}

std::unordered_set<RecordId> layersFrozenIn(const Drawing &drawing, RecordId viewport)
{
    const bool isOld = drawing.database().isBefore2000();
    std::unordered_set<RecordId> layers;
    GroupReader reader = drawing.database().reader(viewport);
    for (Item item; reader.next(item);) {
        if (item.code == FrozenCode || item.code == HardFrozenCode)
            layers.insert(drawing.database().find({item.handle}));
        else if (isOld && item.code == FrozenNameCode)
            layers.insert(drawing.tables().find(known::Layer, reader.text(item)));
    }
    layers.erase(NoRecord);
    return layers;
}

void changeView(Database &database, RecordId viewport, double right, double up, double height)
{
    GroupList groups = database.groups(viewport);
    for (Group &group : groups) {
        auto *centre = std::get_if<Point>(&group.value);
        if (group.code == ViewCentreCode && centre) {
            centre->x += right;
            centre->y += up;
        } else if (group.code == ViewHeightCode) {
            group.value = height;
        }
    }
    database.replace(viewport, groups);
}

} // namespace drawing
