#include "host/kernel/PointValues.h"

#include "host/interpreter/Objects.h"

using lisp::Value;

std::optional<PointList> pointListOf(Value value)
{
    double coordinates[3] = {0, 0, 0};
    int count = 0;
    for (; value.isCons(); value = value.asCons()->cdr, ++count) {
        if (count == 3 || !value.asCons()->car.isNumber())
            return std::nullopt;
        coordinates[count] = value.asCons()->car.asDouble();
    }
    if (count < 2 || !value.isNil())
        return std::nullopt;
    return PointList{{coordinates[0], coordinates[1], coordinates[2]}, count};
}

Value pointValue(lisp::Machine &machine, const LispPoint &point, int count)
{
    lisp::ListBuilder coordinates(machine.heap());
    coordinates.add(Value::canonicalReal(point.x));
    coordinates.add(Value::canonicalReal(point.y));
    if (count == 3)
        coordinates.add(Value::canonicalReal(point.z));
    return coordinates.list();
}
