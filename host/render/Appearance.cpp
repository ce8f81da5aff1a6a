#include "host/render/Appearance.h"

#include "host/drawing/HeaderVariables.h"
#include "host/drawing/TextCodec.h"
#include "host/palette/Palette.h"

namespace render {

namespace {

constexpr int LinetypeCode = 6, LinetypeScaleCode = 48, InvisibleCode = 60, ColorCode = 62, WeightCode = 370,
              TrueColorCode = 420;
constexpr double MillimetresPerWeight = 0.01;

double realVariable(const drawing::Database &database, std::string_view name, double fallback)
{
    const auto group = drawing::variable(database, name);
    const double *value = group ? std::get_if<double>(&group->value) : nullptr;
    return value && std::isfinite(*value) && *value > 0 ? *value : fallback;
}

// The weight, in hundredths of a millimetre, that the drawing asks for where none is named.
constexpr int UsualWeight = 25;

void take(const drawing::Item &item, const drawing::GroupReader &reader, EntityProperties &properties)
{
    switch (item.code) {
    case LinetypeCode:
        properties.linetype = reader.text(item);
        break;
    case LinetypeScaleCode:
        properties.linetypeScale = item.real > 0 && std::isfinite(item.real) ? item.real : 1;
        break;
    case InvisibleCode:
        properties.isInvisible = (item.integer & 1) != 0;
        break;
    case ColorCode:
        properties.color.index = static_cast<int>(item.integer);
        break;
    case TrueColorCode:
        properties.color.trueColor = static_cast<std::uint32_t>(item.integer & 0xffffff);
        break;
    case WeightCode:
        properties.weight = static_cast<int>(item.integer);
        break;
    default:
        break;
    }
}

int brightness(std::uint32_t rgb)
{
    return static_cast<int>((rgb >> 16 & 255) + (rgb >> 8 & 255) + (rgb & 255));
}

} // namespace

EntityProperties propertiesOf(const drawing::Database &database, drawing::RecordId entity)
{
    EntityProperties properties;
    properties.layer = database.record(entity).name;
    drawing::GroupReader reader = database.reader(entity);
    int subclasses = 0; // behind the second one the same codes mean other things
    for (drawing::Item item; reader.next(item) && item.code < drawing::groupcode::ExtendedString;) {
        if (item.code == drawing::groupcode::Subclass && ++subclasses > 1)
            break;
        take(item, reader, properties);
    }
    return properties;
}

AppearanceResolver::AppearanceResolver(const drawing::Drawing &drawing, const Surface &surface)
    : m_drawing(drawing), m_surface(surface), m_layers(drawing), m_linetypes(drawing),
      m_linetypeScale(realVariable(drawing.database(), "$LTSCALE", 1)),
      m_defaultWeight(UsualWeight * MillimetresPerWeight), m_layerZero(drawing.database().names().find("0"))
{
}

void AppearanceResolver::setFrozen(std::unordered_set<drawing::RecordId> layers)
{
    m_frozen = std::move(layers);
    m_insertPath.clear();
}

std::uint32_t AppearanceResolver::rgbOf(const NamedColor &color) const
{
    constexpr int Foreground = 7;
    if (m_surface.ink)
        return *m_surface.ink;
    if (color.trueColor)
        return *color.trueColor;
    const bool isNamed = color.index > 0 && color.index < static_cast<int>(palette::Count);
    if (!isNamed || color.index == Foreground)
        return brightness(m_surface.background) > 3 * 127 ? 0x000000 : 0xffffff;
    const palette::Color &rgb = palette::colors[static_cast<std::size_t>(color.index)];
    return static_cast<std::uint32_t>(rgb.red << 16 | rgb.green << 8 | rgb.blue);
}

std::uint32_t AppearanceResolver::colorOf(const NamedColor &color, const Layer &layer, const Resolved *insert) const
{
    if (m_surface.ink)
        return *m_surface.ink;
    if (color.trueColor)
        return *color.trueColor;
    if (color.index == NamedColor::ByBlock)
        return insert ? insert->appearance.rgb : rgbOf({7, std::nullopt});
    return rgbOf(color.index == NamedColor::ByLayer ? layer.color : color);
}

double AppearanceResolver::weightOf(int weight, const Layer &layer, const Resolved *insert) const
{
    if (weight == lineweight::ByBlock)
        return insert ? insert->appearance.weight : m_defaultWeight;
    if (weight == lineweight::ByLayer)
        weight = layer.weight;
    return weight < 0 ? m_defaultWeight : weight * MillimetresPerWeight;
}

AppearanceResolver::Resolved AppearanceResolver::resolve(const EntityProperties &own, const Resolved *insert,
                                                         bool takesLayer) const
{
    Resolved result;
    result.layer = insert && takesLayer && own.layer == m_layerZero ? insert->layer : own.layer;
    const Layer &layer = m_layers.of(result.layer);
    const std::u16string linetype = drawing::folded(own.linetype);
    result.linetype = linetype == drawing::folded(u"BYLAYER")   ? layer.linetype
                      : linetype == drawing::folded(u"BYBLOCK") ? (insert ? insert->linetype : u"CONTINUOUS")
                                                                : own.linetype;
    result.appearance = {colorOf(own.color, layer, insert), &m_linetypes.of(result.linetype),
                         m_linetypeScale * own.linetypeScale, weightOf(own.weight, layer, insert), &layer};
    result.isHiddenBelow = own.isInvisible || isFrozen(layer) || (insert && insert->isHiddenBelow);
    result.isHidden = result.isHiddenBelow || !layer.isOn || (m_surface.isPlot && !layer.isPlotted);
    return result;
}

const EntityProperties &AppearanceResolver::cachedProperties(drawing::RecordId entity)
{
    const auto known = m_inBlocks.find(entity);
    return known != m_inBlocks.end()
               ? known->second
               : m_inBlocks.emplace(entity, propertiesOf(m_drawing.database(), entity)).first->second;
}

const AppearanceResolver::Resolved *AppearanceResolver::insertOf(const geometry::Origin &origin)
{
    if (origin.inserts.empty())
        return nullptr;
    if (!std::equal(origin.inserts.begin(), origin.inserts.end(), m_insertPath.begin(), m_insertPath.end())) {
        m_insertPath.assign(origin.inserts.begin(), origin.inserts.end());
        const Resolved *outer = nullptr;
        for (const drawing::RecordId insert : m_insertPath) {
            m_insert = resolve(cachedProperties(insert), outer, true);
            outer = &m_insert;
        }
    }
    return &m_insert;
}

std::optional<Appearance> AppearanceResolver::of(const geometry::Origin &origin)
{
    const Resolved *insert = insertOf(origin);
    // An attribute is no part of the block, so that its layer "0" is layer "0".
    const bool takesLayer = m_drawing.database().record(origin.entity).type != drawing::known::Attribute;
    const Resolved result = insert ? resolve(cachedProperties(origin.entity), insert, takesLayer)
                                   : resolve(propertiesOf(m_drawing.database(), origin.entity), nullptr, takesLayer);
    return result.isHidden ? std::nullopt : std::optional(result.appearance);
}

} // namespace render
