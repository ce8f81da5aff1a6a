#include "host/drawing/LayerState.h"
#include "host/drawing/LayoutViewports.h"

namespace drawing {

LayerStates::LayerStates(const Drawing &drawing, RecordId viewport) : m_drawing(drawing)
{
    if (viewport != NoRecord)
        m_frozenThere = layersFrozenIn(drawing, viewport);
}

const LayerState &LayerStates::of(RecordId entity)
{
    const NameId name = m_drawing.database().record(entity).name;
    const auto known = m_states.find(name);
    return known != m_states.end() ? known->second : m_states.emplace(name, read(name)).first->second;
}

LayerState LayerStates::read(NameId name) const
{
    constexpr int ColorCode = 62, FlagsCode = 70;
    const Database &database = m_drawing.database();
    const RecordId layer = m_drawing.tables().find(known::Layer, database.codec().decode(database.names().text(name)));
    if (layer == NoRecord)
        return {};
    const GroupList groups = database.groups(layer);
    const auto *color = findValue<std::int64_t>(groups, ColorCode);
    const auto *flags = findValue<std::int64_t>(groups, FlagsCode);
    const bool isFrozen = flags && (*flags & layerflag::Frozen) != 0;
    return {!color || *color >= 0, isFrozen || m_frozenThere.contains(layer),
            flags && (*flags & layerflag::Locked) != 0};
}

} // namespace drawing
