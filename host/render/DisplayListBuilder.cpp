#include "host/render/DisplayListBuilder.h"

#include "host/drawing/geometry/Flatten.h"
#include "host/render/Gradients.h"
#include "host/render/ImageFiles.h"
#include "host/render/TextMask.h"

#include <QPolygonF>

namespace render {

using geometry::Origin;
using geometry::Vector;

namespace {

// Linetypes whose pattern is shorter on the page than this many tolerances are drawn without gaps.
constexpr double LeastPattern = 8;

// Whether the linetype runs through the corners of a polyline. Otherwise each of its segments begins it anew.
bool runsThrough(const drawing::Database &database, drawing::RecordId entity)
{
    constexpr std::int64_t RunsThrough = 128;
    const auto flags = database.firstGroup(entity, drawing::groupcode::Count);
    const auto *value = flags ? std::get_if<std::int64_t>(&flags->value) : nullptr;
    return value && (*value & RunsThrough) != 0;
}

bool isPolyline(const drawing::Database &database, drawing::RecordId entity)
{
    const drawing::NameId type = database.record(entity).type;
    return type == drawing::known::Polyline || type == drawing::known::LightPolyline;
}

QRectF boundsOf(const std::vector<std::vector<QPointF>> &loops)
{
    QRectF bounds;
    for (const auto &loop : loops)
        bounds |= QPolygonF(QList<QPointF>(loop.begin(), loop.end())).boundingRect();
    return bounds;
}

} // namespace

DisplayListBuilder::DisplayListBuilder(const drawing::Drawing &drawing, AppearanceResolver &appearances,
                                       const Projection &projection, DisplayList &list)
    : m_drawing(drawing), m_appearances(appearances), m_projection(projection), m_list(list),
      m_budget(drawing.database()), m_styles(drawing.database()), m_marks(drawing.database())
{
}

void DisplayListBuilder::add(drawing::RecordId entity)
{
    m_cutEntities += geometry::shapesOf(m_drawing, entity, *this, &m_budget) ? 0 : 1;
}

bool DisplayListBuilder::begin(const Origin &origin)
{
    const auto appearance = m_appearances.of(origin);
    if (!appearance)
        return false;
    m_appearance = *appearance;
    m_item = {};
    m_item.rgb = m_appearance.rgb;
    m_item.weight = static_cast<float>(m_appearance.weight);
    m_item.entity = origin.outermost();
    return true;
}

QPointF DisplayListBuilder::onPage(const Vector &place) const
{
    const Vector result = m_isOnPage ? place : m_projection.toPage.place(place);
    return {result.x, result.y};
}

// --- lines ---

void DisplayListBuilder::dash(std::span<const Vector> points)
{
    std::vector<QPointF> line;
    line.reserve(points.size());
    for (const Vector &point : points)
        line.push_back(onPage(point));
    m_list.add(m_item, line);
}

void DisplayListBuilder::label(const LinetypeElement &element, const Vector &place, const Vector &direction)
{
    const double scale = m_appearance.linetypeScale * m_projection.linetypeScale;
    const Vector along = element.isUpright ? Vector{1, 0, 0} : direction, across{-along.y, along.x, 0};
    const double size = element.scale * scale, c = std::cos(element.rotation), s = std::sin(element.rotation);
    const Vector across2{-direction.y, direction.x, 0};
    const text::Layout layout = text::layOutLine(element.text, m_styles.of(element.style).fontName());
    addLayout(layout, place + direction * (element.x * scale) + across2 * (element.y * scale),
              (along * c + across * s) * size, (across * c - along * s) * size);
}

bool DisplayListBuilder::isPatternTooFine() const
{
    const double length = m_appearance.linetype->length * m_appearance.linetypeScale * m_projection.linetypeScale;
    return length * m_projection.scale < LeastPattern * m_projection.tolerance;
}

void DisplayListBuilder::addLine(std::span<const Vector> points, bool isClosed)
{
    if (m_appearance.linetype->isContinuous() || isPatternTooFine())
        dash(points);
    else
        cutIntoDashes(points, isClosed, *m_appearance.linetype, m_appearance.linetypeScale * m_projection.linetypeScale,
                      *this);
}

void DisplayListBuilder::addSegments(const geometry::Path &path)
{
    for (const geometry::Curve &curve : path.curves)
        addLine(geometry::flattened({{&curve, 1}, false}, worldTolerance()), false);
}

void DisplayListBuilder::path(const geometry::Path &path, const Origin &origin)
{
    if (!begin(origin))
        return;
    const bool isDashed = !m_appearance.linetype->isContinuous();
    const drawing::Database &database = m_drawing.database();
    if (isDashed && isPolyline(database, origin.entity) && !runsThrough(database, origin.entity))
        addSegments(path);
    else
        addLine(geometry::flattened(path, worldTolerance()), path.isClosed);
}

void DisplayListBuilder::face(const geometry::Face &face, const Origin &origin)
{
    if (!begin(origin))
        return;
    for (std::size_t i = 0; i < std::size(face.corners); ++i) {
        const Vector edge[] = {face.corners[i], face.corners[(i + 1) % std::size(face.corners)]};
        if (face.isEdgeVisible[i] && edge[0] != edge[1])
            addLine(edge, false);
    }
}

void DisplayListBuilder::ray(const geometry::Ray &ray, const Origin &origin)
{
    if (!begin(origin))
        return;
    // As long as reaches through the window from wherever it begins.
    const Vector way = m_projection.toPage.direction(ray.direction);
    const QPointF direction(way.x, way.y), from = onPage(ray.origin);
    const double size = std::hypot(direction.x(), direction.y());
    if (!(size > 0))
        return;
    const QPointF toCentre = m_projection.window.center() - from;
    const double middle = QPointF::dotProduct(toCentre, direction) / (size * size);
    const double half = std::hypot(m_projection.window.width(), m_projection.window.height()) / size;
    const double start = ray.isEndless ? middle - half : std::max(0.0, middle - half), end = middle + half;
    if (end <= start)
        return;
    m_item.isEndless = true;
    const Vector ends[] = {ray.origin + ray.direction * start, ray.origin + ray.direction * end};
    addLine(ends, false);
}

void DisplayListBuilder::point(const Vector &place, const Origin &origin)
{
    if (!begin(origin))
        return;
    m_isOnPage = true;
    const Vector center = m_projection.toPage.place(place);
    for (const geometry::Curve &curve : m_marks.at(center, m_projection.scale, m_projection.window.height()))
        dash(geometry::flattened({{&curve, 1}, false}, m_projection.tolerance));
    m_isOnPage = false;
}

void DisplayListBuilder::window(const geometry::Window &window, const Origin &origin)
{
    if (!begin(origin))
        return;
    std::vector<Vector> frame(std::begin(window.corners), std::end(window.corners));
    frame.push_back(frame.front());
    addLine(frame, true);
}

// --- areas ---

Outlines DisplayListBuilder::outlinesOf(const geometry::Area &area) const
{
    Outlines outlines;
    for (const auto &loop : area.loops) {
        outlines.push_back(geometry::flattened({loop, true}, worldTolerance()));
        for (Vector &place : outlines.back())
            place = m_projection.toPage.place(place);
    }
    return outlines;
}

void DisplayListBuilder::area(const geometry::Area &area, const Origin &origin)
{
    if (!begin(origin))
        return;
    if (!area.isFilled) {
        addPattern(area);
        return;
    }
    Loops loops;
    for (const auto &outline : outlinesOf(area)) {
        loops.emplace_back();
        for (const Vector &place : outline)
            loops.back().emplace_back(place.x, place.y);
    }
    addArea(loops, origin);
    if (area.hasOutline)
        addOutlines(area);
}

void DisplayListBuilder::addArea(const Loops &loops, const Origin &origin)
{
    m_item.kind = DisplayItem::Kind::Area;
    const bool isHatch = m_drawing.database().record(origin.entity).type == drawing::known::Hatch;
    const auto gradient = isHatch ? gradientOf(m_drawing.database(), origin.entity, boundsOf(loops)) : std::nullopt;
    if (gradient)
        m_list.add(m_item, loops, *gradient);
    else
        m_list.add(m_item, loops);
    m_item.kind = DisplayItem::Kind::Line;
}

void DisplayListBuilder::addPattern(const geometry::Area &area)
{
    const Outlines outlines = outlinesOf(area);
    m_isOnPage = true;
    for (geometry::PatternLine line : area.pattern) {
        line.base = m_projection.toPage.place(line.base);
        line.direction = m_projection.toPage.direction(line.direction);
        line.offset = m_projection.toPage.direction(line.offset);
        hatch(outlines, line, *this);
    }
    m_isOnPage = false;
}

// Thin, so that an area that is narrower than a pixel does not vanish.
void DisplayListBuilder::addOutlines(const geometry::Area &area)
{
    m_item.weight = 0;
    for (const auto &loop : area.loops)
        dash(geometry::flattened({loop, true}, worldTolerance()));
}

void DisplayListBuilder::image(const geometry::Image &image, const Origin &origin)
{
    if (!begin(origin) || image.outline.empty())
        return;
    Loops loops(1);
    for (const Vector &place : image.outline)
        loops[0].push_back(onPage(place));
    const QImage content = image.isShown && !image.isWipeout ? imageFile(m_drawing, image.definition) : QImage();
    if (image.isWipeout) {
        m_item.rgb = m_appearances.background();
        m_item.kind = DisplayItem::Kind::Area;
        m_list.add(m_item, loops);
    } else if (!content.isNull()) {
        const Vector right = m_projection.toPage.direction(image.right * (image.width / content.width()));
        const Vector down = m_projection.toPage.direction(image.up * (-image.height / content.height()));
        const QPointF topLeft = onPage(image.insertion + image.up * image.height);
        m_list.add(m_item, loops,
                   Picture{content, QTransform(right.x, right.y, down.x, down.y, topLeft.x(), topLeft.y())});
    } else { // its frame alone
        loops[0].push_back(loops[0].front());
        m_list.add(m_item, loops[0]);
    }
}

// --- texts ---

std::uint32_t DisplayListBuilder::rgbOf(const text::InlineColor &color) const
{
    if (color.rgb)
        return *color.rgb;
    const bool isOwn = color.index <= NamedColor::ByBlock || color.index >= NamedColor::ByLayer;
    return isOwn ? m_appearance.rgb : m_appearances.rgbOf({color.index, std::nullopt});
}

void DisplayListBuilder::addLayout(const text::Layout &layout, const Vector &insertion, const Vector &right,
                                   const Vector &up)
{
    const auto pageOf = [&](const text::Place &place) { return onPage(insertion + right * place.x + up * place.y); };
    const DisplayItem line = m_item;
    m_item.kind = DisplayItem::Kind::Letter;
    for (const text::PlacedGlyph &placed : layout.glyphs) {
        Loops loops;
        for (const auto &outline : placed.glyph->outline) {
            loops.emplace_back();
            for (const text::Place &place : outline)
                loops.back().push_back(pageOf(placed.place(place)));
        }
        m_item.rgb = rgbOf(placed.color);
        if (!loops.empty())
            m_list.add(m_item, loops);
    }
    m_item = line;
    for (const text::Rule &rule : layout.rules) {
        m_item.rgb = rgbOf(rule.color);
        const QPointF ends[] = {pageOf(rule.from), pageOf(rule.to)};
        m_list.add(m_item, ends);
    }
    m_item = line;
}

void DisplayListBuilder::text(const geometry::Text &text, const Origin &origin)
{
    if (!begin(origin))
        return;
    addLayout(layOut(text, m_styles.of(text.style)), text.insertion, text.right, text.up);
}

void DisplayListBuilder::addBackground(const text::Layout &layout, const geometry::Paragraphs &paragraphs,
                                       const Origin &origin)
{
    const auto mask = textMaskOf(m_drawing.database(), origin.entity);
    const text::Bounds box = layout.bounds();
    if (!mask || box.isEmpty())
        return;
    const double border = (mask->size - 1) * paragraphs.height;
    Loops loops(1);
    for (const text::Place &corner :
         {text::Place{box.left - border, box.bottom - border}, text::Place{box.right + border, box.bottom - border},
          text::Place{box.right + border, box.top + border}, text::Place{box.left - border, box.top + border}})
        loops[0].push_back(onPage(paragraphs.insertion + paragraphs.right * corner.x + paragraphs.up * corner.y));
    DisplayItem item = m_item;
    item.kind = DisplayItem::Kind::Area;
    item.rgb = mask->color ? m_appearances.rgbOf(*mask->color) : m_appearances.background();
    m_list.add(item, loops);
}

void DisplayListBuilder::paragraphs(const geometry::Paragraphs &paragraphs, const Origin &origin)
{
    if (!begin(origin))
        return;
    const text::Layout layout = layOut(paragraphs, m_styles.of(paragraphs.style));
    addBackground(layout, paragraphs, origin);
    addLayout(layout, paragraphs.insertion, paragraphs.right, paragraphs.up);
}

} // namespace render
