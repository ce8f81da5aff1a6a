#pragma once

#include "host/commands/Input.h"

#include <memory>
#include <unordered_map>

namespace commands {

// How objects came into a selection; the kinds are numbered as ssnamex tells them.
struct SelectionWay
{
    enum class Kind { Other, Pick, Inside, Crossing, Fence };

    Kind kind = Kind::Other;
    std::vector<Point> places; // in the user's coordinate system: of the pick, the corners, the fence
};

// By all that came at once.
using SharedWay = std::shared_ptr<const SelectionWay>;
inline SharedWay sharedWay(SelectionWay::Kind kind, std::vector<Point> places)
{
    return std::make_shared<const SelectionWay>(SelectionWay{kind, std::move(places)});
}

// Without those of objects that came in another way.
using SelectionWays = std::unordered_map<RecordId, SharedWay>;

} // namespace commands
