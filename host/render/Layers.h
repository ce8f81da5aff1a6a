#pragma once

#include "host/drawing/Drawing.h"

#include <unordered_map>

namespace render {

// Lineweights as group 370 has them: hundredths of a millimetre, or one of these.
namespace lineweight {
inline constexpr int ByLayer = -1, ByBlock = -2, Default = -3;
}

// A colour as an entity or layer names it.
struct NamedColor
{
    static constexpr int ByBlock = 0, ByLayer = 256;

    int index = ByLayer;
    std::optional<std::uint32_t> trueColor; // 0xRRGGBB; goes before the index
};

struct Layer
{
    drawing::RecordId record = drawing::NoRecord; // none: the drawing does not have it
    NamedColor color{7, std::nullopt};
    std::u16string linetype = u"CONTINUOUS";
    int weight = lineweight::Default;
    bool isOn = true;
    bool isFrozen = false;
    bool isPlotted = true;
};

// The layers of a drawing by the number of the name that an entity has for it. A layer that the drawing does not have
// is on, white and continuous.
class Layers
{
public:
    explicit Layers(const drawing::Drawing &drawing) : m_drawing(drawing) {}

    const Layer &of(drawing::NameId name) const; // stays valid

private:
    Layer read(drawing::RecordId id) const;

    const drawing::Drawing &m_drawing;
    mutable std::unordered_map<drawing::NameId, Layer> m_layers;
};

} // namespace render
