#pragma once

#include "host/drawing/Drawing.h"

#include <unordered_map>
#include <unordered_set>

namespace drawing {

// Bits of the group 70 of a layer.
namespace layerflag {
inline constexpr std::int64_t Frozen = 1, Locked = 4;
} // namespace layerflag

struct LayerState
{
    bool isOn = true; // in the file: a layer that is off has a negative colour
    bool isFrozen = false;
    bool isLocked = false;

    bool isSeen() const { return isOn && !isFrozen; }
};

// Of the layers that entities lie on, each looked up once: good until a layer changes. A layer that is not there is as
// a new one. Seen through a viewport, what is frozen there alone is frozen too.
class LayerStates
{
public:
    explicit LayerStates(const Drawing &drawing, RecordId viewport = NoRecord);

    const LayerState &of(RecordId entity);

private:
    LayerState read(NameId name) const;

    const Drawing &m_drawing;
    std::unordered_set<RecordId> m_frozenThere;
    std::unordered_map<NameId, LayerState> m_states;
};

} // namespace drawing
