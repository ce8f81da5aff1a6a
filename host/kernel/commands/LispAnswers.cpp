#include "host/kernel/commands/LispAnswers.h"

#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/drawing/EntityName.h"

using lisp::Value;

namespace {

std::optional<commands::Point> pointOf(Value value)
{
    const std::optional<PointList> list = pointListOf(value);
    return list ? std::optional(commands::Point{list->point.x, list->point.y, list->point.z, list->count})
                : std::nullopt;
}

// An entity name, alone or in a list with the point where it was picked, as entsel gives it.
std::optional<commands::PickedEntity> pickedEntity(Document &document, Value value)
{
    const Value first = value.isCons() ? value.asCons()->car : value;
    const auto *entity = lisp::asNative<EntityName>(first);
    if (!entity)
        return std::nullopt;
    const Value rest = value.isCons() ? value.asCons()->cdr : Value::nil();
    const drawing::RecordId record = recordOf(document.drawing(), entity->name);
    return commands::PickedEntity{record, rest.isCons() ? pointOf(rest.asCons()->car) : std::nullopt};
}

} // namespace

commands::Input answerOf(Document &document, Value value)
{
    if (value.isString())
        return std::u16string(value.asString()->view());
    if (value.isInteger())
        return std::int64_t{value.asInteger()};
    if (value.isNumber())
        return value.asDouble();
    if (const auto *set = lisp::asNative<SelectionSet>(value))
        return set->entities();
    if (const std::optional<commands::Point> point = pointOf(value))
        return *point;
    if (const std::optional<commands::PickedEntity> picked = pickedEntity(document, value))
        return *picked;
    lisp::fail(u"bad argument type");
}
