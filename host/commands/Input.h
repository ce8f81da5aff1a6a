#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/Record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace commands {

using drawing::Point;
using drawing::RecordId;

using Selection = std::vector<RecordId>; // each entity once

struct PickedEntity
{
    RecordId entity = drawing::NoRecord;
    std::optional<Point> at; // where it was picked, if it was
};

// One answer to a command. Points are in the user's coordinate system; those of two coordinates lie at the current
// elevation. The empty text is Enter.
using Input = std::variant<std::u16string, std::int64_t, double, Point, PickedEntity, Selection>;

enum class InputKind { Point, Corner, Distance, Angle, Integer, Real, String, Keyword, Entity, Objects };

// How an answer looks where it is echoed.
std::u16string shown(const Input &input);

} // namespace commands
