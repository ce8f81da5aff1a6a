#pragma once

#include "host/drawing/geometry/EntityShapes.h"
#include "host/render/Layers.h"
#include "host/render/Linetypes.h"

#include <unordered_map>
#include <unordered_set>

namespace render {

// What all entities say of how they look, as it stands in the file.
struct EntityProperties
{
    drawing::NameId layer = drawing::known::None;
    NamedColor color;
    std::u16string linetype = u"BYLAYER";
    double linetypeScale = 1;
    int weight = lineweight::ByLayer;
    bool isInvisible = false;
};
EntityProperties propertiesOf(const drawing::Database &database, drawing::RecordId entity);

// How a shape is drawn, with everything resolved.
struct Appearance
{
    std::uint32_t rgb = 0;              // 0xRRGGBB
    const Linetype *linetype = nullptr; // never null once resolved
    double linetypeScale = 1;           // of the drawing and of the entity
    double weight = 0.25;               // in millimetres; 0: as thin as can be
    const Layer *layer = nullptr;       // that decided on visibility
};

// The paper or screen that is drawn on.
struct Surface
{
    std::uint32_t background = 0xffffff;
    bool isPlot = true;                    // layers that are not plotted are left out
    std::optional<std::uint32_t> ink = {}; // for everything, instead of its own colour
};

// Follows BYLAYER and BYBLOCK to what they mean. An entity on layer "0" of a block takes the layer of the insert.
class AppearanceResolver
{
public:
    AppearanceResolver(const drawing::Drawing &drawing, const Surface &surface);

    // None when the entity is not seen: it is invisible, or its layer is off, frozen or not plotted. An insert on a
    // frozen layer hides all of it; one on a layer that is off hides what lies on that layer.
    std::optional<Appearance> of(const geometry::Origin &origin);

    std::uint32_t background() const { return m_surface.background; }
    std::uint32_t rgbOf(const NamedColor &color) const; // 7 contrasts with the background; ByLayer as 7
    // Layers that are frozen in the viewport that is drawn now.
    void setFrozen(std::unordered_set<drawing::RecordId> layers);

private:
    struct Resolved
    {
        Appearance appearance;
        std::u16string linetype;
        drawing::NameId layer = drawing::known::None;
        bool isHidden = false;
        bool isHiddenBelow = false; // also what stands in it
    };
    Resolved resolve(const EntityProperties &own, const Resolved *insert, bool takesLayer) const;
    const Resolved *insertOf(const geometry::Origin &origin);
    const EntityProperties &cachedProperties(drawing::RecordId entity);
    std::uint32_t colorOf(const NamedColor &color, const Layer &layer, const Resolved *insert) const;
    double weightOf(int weight, const Layer &layer, const Resolved *insert) const;
    bool isFrozen(const Layer &layer) const { return layer.isFrozen || m_frozen.contains(layer.record); }

    const drawing::Drawing &m_drawing;
    Surface m_surface;
    Layers m_layers;
    Linetypes m_linetypes;
    double m_linetypeScale, m_defaultWeight;
    drawing::NameId m_layerZero;
    std::unordered_set<drawing::RecordId> m_frozen;
    std::unordered_map<drawing::RecordId, EntityProperties> m_inBlocks; // seen again and again
    std::vector<drawing::RecordId> m_insertPath;
    Resolved m_insert; // what m_insertPath leads to
};

} // namespace render
