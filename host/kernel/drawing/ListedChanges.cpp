#include "host/kernel/drawing/ListedChanges.h"

#include "host/drawing/ItemValues.h"
#include "host/drawing/entities/ListedCodes.h"
#include "host/interpreter/Objects.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"

using drawing::EntityListing;
using drawing::Item;
using drawing::ListedItem;
using drawing::Point;
using drawing::ValueKind;
using lisp::Value;

namespace {

bool isSamePoint(const Point &point, Value value)
{
    const std::optional<PointList> list = pointListOf(value);
    return list && Point{list->point.x, list->point.y, list->point.z, list->count} == point;
}

bool isSameReference(std::uint64_t handle, Value value)
{
    const auto *entity = lisp::asNative<EntityName>(value);
    return entity && static_cast<std::uint64_t>(entity->name.words[1]) == handle;
}

// Yes for nearly all values that are the same, with no memory of its own. A no may be wrong: a number of another type.
bool isSurelySame(const drawing::TextCodec &codec, const Item &item, Value value)
{
    switch (item.kind) {
    case ValueKind::Text:
    case ValueKind::Handle:
        return value.isString() && codec.decodesTo(item.value, value.asString()->view());
    case ValueKind::Reference:
        return isSameReference(item.handle, value);
    case ValueKind::Real:
        return value.isReal() && value.asReal() == item.real;
    case ValueKind::Point:
        return isSamePoint(item.point, value);
    case ValueKind::Binary:
        return false;
    default:
        return value.isInteger() && value.asInteger() == item.integer;
    }
}

} // namespace

std::optional<drawing::ValueChanges> changedValues(const drawing::Drawing &drawing, const EntityListing &listing,
                                                   Value list)
{
    const drawing::TextCodec &codec = drawing.database().codec();
    const drawing::ItemValues values(drawing.database().format(), codec);
    drawing::ValueChanges changes;
    std::size_t place = 0;
    for (const ListedItem listed : listing) {
        const bool isInHead = place++ < listing.headSize();
        if (!list.isCons() || !list.asCons()->car.isCons())
            return std::nullopt;
        const Value pair = list.asCons()->car;
        list = list.asCons()->cdr;
        const Value code = pair.asCons()->car;
        if (!code.isInteger() || code.asInteger() != listed.item.code)
            return std::nullopt;
        if (listed.item.code == drawing::groupcode::Braces && !isInHead)
            return std::nullopt; // what stands between braces is not changed
        if (isSurelySame(codec, listed.item, pair.asCons()->cdr))
            continue;
        std::optional<drawing::Group> group = groupOf(pair);
        if (group && values.isSame(listed.item, *group))
            continue;
        if (!group || isInHead || drawing::isFixed(group->code))
            return std::nullopt;
        changes.items.push_back(listed);
        changes.groups.push_back(std::move(*group));
    }
    return list.isNil() ? std::optional(std::move(changes)) : std::nullopt;
}
