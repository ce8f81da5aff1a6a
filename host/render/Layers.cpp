#include "host/render/Layers.h"

#include "host/drawing/LayerState.h"

#include <cstdlib>

namespace render {

namespace {

constexpr int FlagsCode = 70, ColorCode = 62, TrueColorCode = 420, LinetypeCode = 6, PlottedCode = 290,
              WeightCode = 370;

} // namespace

const Layer &Layers::of(drawing::NameId name) const
{
    const auto known = m_layers.find(name);
    if (known != m_layers.end())
        return known->second;
    const drawing::Database &database = m_drawing.database();
    const auto id =
        m_drawing.tables().find(drawing::known::Layer, database.codec().decode(database.names().text(name)));
    return m_layers.emplace(name, id == drawing::NoRecord ? Layer{} : read(id)).first->second;
}

Layer Layers::read(drawing::RecordId id) const
{
    Layer layer;
    layer.record = id;
    drawing::GroupReader reader = m_drawing.database().reader(id);
    for (drawing::Item item; reader.next(item);) {
        switch (item.code) {
        case FlagsCode:
            layer.isFrozen = (item.integer & drawing::layerflag::Frozen) != 0;
            break;
        case ColorCode: // negative: the layer is off
            layer.isOn = item.integer >= 0;
            layer.color.index = static_cast<int>(std::abs(item.integer));
            break;
        case TrueColorCode:
            layer.color.trueColor = static_cast<std::uint32_t>(item.integer & 0xffffff);
            break;
        case LinetypeCode:
            layer.linetype = reader.text(item);
            break;
        case PlottedCode:
            layer.isPlotted = item.integer != 0;
            break;
        case WeightCode:
            layer.weight = static_cast<int>(item.integer);
            break;
        default:
            break;
        }
        if (item.code >= drawing::groupcode::ExtendedString)
            break; // what applications keep there has codes of its own meaning
    }
    return layer;
}

} // namespace render
