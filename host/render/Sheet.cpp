#include "host/render/Sheet.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/TextCodec.h"
#include "host/render/DisplayListBuilder.h"
#include "host/render/Spaces.h"
#include "host/render/Viewports.h"
#include "host/render/VisibleBounds.h"

namespace render {

using drawing::RecordId;
using geometry::Matrix;

namespace {

constexpr double PageWidth = 420, MostHeight = 594, LeastHeight = 50; // of pages without paper of their own
constexpr double Border = 0.02;                                       // of the page's width
constexpr double Tolerance = 0.02;                                    // a fiftieth of a millimetre is not seen

std::int64_t integerVariable(const drawing::Database &database, std::string_view name, std::int64_t fallback)
{
    const auto group = drawing::variable(database, name);
    const auto *value = group ? std::get_if<std::int64_t>(&group->value) : nullptr;
    return value ? *value : fallback;
}

Matrix pageMatrix(double scale, const QPointF &from, const QPointF &to)
{
    return Matrix::translation({to.x(), to.y(), 0}) * Matrix::scale(scale, scale, scale) *
           Matrix::translation({-from.x(), -from.y(), 0});
}

// Where a space lies on the page.
struct Fit
{
    QSizeF size;
    double scale = 1;
    Matrix toPage;
    QRectF shown; // on the page; empty: all of it
};

// What the bounds hold, as large as fits on a page that is made for it.
Fit fitTo(const QRectF &bounds)
{
    Fit fit;
    constexpr double Room = PageWidth * (1 - 2 * Border);
    const double ratio = bounds.width() > 0 ? bounds.height() / bounds.width() : INFINITY;
    const bool isEmpty = !(bounds.width() > 0 || bounds.height() > 0);
    const double height = isEmpty ? LeastHeight : std::clamp(Room * ratio, LeastHeight, MostHeight);
    fit.size = {PageWidth, height + 2 * Border * PageWidth};
    const double across = bounds.width() > 0 ? Room / bounds.width() : INFINITY;
    const double up = bounds.height() > 0 ? height / bounds.height() : INFINITY;
    fit.scale = isEmpty ? 1 : std::min(across, up);
    fit.toPage = pageMatrix(fit.scale, bounds.center(), QPointF(fit.size.width() / 2, fit.size.height() / 2));
    return fit;
}

QRectF boundsOf(const drawing::Drawing &drawing, AppearanceResolver &appearances, const std::vector<RecordId> &entities)
{
    VisibleBounds bounds(drawing, appearances, {});
    for (const RecordId entity : entities)
        bounds.add(entity);
    return bounds.bounds();
}

QRectF pageOf(const QSizeF &size)
{
    return {QPointF(0, 0), size};
}

void addPart(Sheet &sheet, const drawing::Drawing &drawing, AppearanceResolver &appearances,
             const Projection &projection, const std::vector<RecordId> &entities, ShownSpace::Kind kind)
{
    Sheet::Part result{DisplayList(), {kind, projection.toPage, projection.scale, projection.window}};
    DisplayListBuilder builder(drawing, appearances, projection, result.list);
    for (const RecordId entity : entities)
        builder.add(entity);
    sheet.cutEntities += builder.cutEntities();
    sheet.parts.push_back(std::move(result));
}

// So that the area is as large as it can be; a line has no height or no width.
double fittingScale(const QRectF &area, const QRectF &room)
{
    const double across = area.width() > 0 ? room.width() / area.width() : INFINITY;
    const double up = area.height() > 0 ? room.height() / area.height() : INFINITY;
    return std::isfinite(std::min(across, up)) ? std::min(across, up) : 1;
}

// Where the layout lies on its paper.
Fit fitOf(const PageSetup &setup, const drawing::Drawing &drawing, AppearanceResolver &appearances,
          const std::vector<RecordId> &entities)
{
    const bool hasWindow = setup.area == PageSetup::Area::Window && !setup.window.isEmpty();
    if (setup.paper.isEmpty())
        return fitTo(hasWindow ? setup.window : boundsOf(drawing, appearances, entities));
    Fit fit;
    fit.size = setup.paper;
    fit.scale = setup.scale;
    const QRectF printable =
        pageOf(setup.paper)
            .adjusted(setup.margins.left(), setup.margins.bottom(), -setup.margins.right(), -setup.margins.top());
    const QPointF corner = printable.topLeft() + setup.offset; // the lower left one: y goes upwards
    if (!hasWindow && setup.area != PageSetup::Area::Extents) {
        fit.scale = fit.scale > 0 ? fit.scale : 1;
        fit.toPage = pageMatrix(fit.scale, QPointF(0, 0), corner);
        return fit;
    }
    const QRectF area = hasWindow ? setup.window : boundsOf(drawing, appearances, entities);
    if (!(fit.scale > 0))
        fit.scale = fittingScale(area, printable);
    fit.toPage = setup.isCentred ? pageMatrix(fit.scale, area.center(), printable.center())
                                 : pageMatrix(fit.scale, area.topLeft(), corner);
    if (hasWindow) {
        const geometry::Vector lower = fit.toPage.place({area.left(), area.top(), 0});
        fit.shown = QRectF(lower.x, lower.y, area.width() * fit.scale, area.height() * fit.scale);
    }
    return fit;
}

QPolygonF onPage(const QPolygonF &polygon, const Fit &fit)
{
    QPolygonF result;
    for (const QPointF &corner : polygon) {
        const geometry::Vector place = fit.toPage.place({corner.x(), corner.y(), 0});
        result << QPointF(place.x, place.y);
    }
    return result;
}

void addViewport(const drawing::Drawing &drawing, const Viewport &viewport, const Fit &fit,
                 AppearanceResolver &appearances, Sheet &sheet)
{
    const QPolygonF outline = onPage(viewport.outline, fit);
    const bool areLinetypesOfPaper = integerVariable(drawing.database(), "$PSLTSCALE", 1) != 0;
    Projection projection{fit.toPage * viewport.toPaper, viewport.scale * fit.scale, Tolerance, outline.boundingRect()};
    projection.linetypeScale = areLinetypesOfPaper ? 1 / viewport.scale : 1;
    appearances.setFrozen(viewport.frozenLayers);
    addPart(sheet, drawing, appearances, projection, modelEntities(drawing), ShownSpace::Kind::Viewport);
    ShownSpace &space = sheet.parts.back().space;
    space.outline = outline;
    space.viewport = viewport.entity;
    space.view = onPage(viewport.view, fit).boundingRect();
    appearances.setFrozen({});
}

Sheet paperSheet(const drawing::Drawing &drawing, const PageSetup &setup, const std::vector<RecordId> &entities)
{
    AppearanceResolver appearances(drawing, {});
    const Fit fit = fitOf(setup, drawing, appearances, entities);
    Sheet sheet;
    sheet.size = fit.size;
    for (const RecordId entity : entities)
        if (const auto viewport = viewportOf(drawing, entity))
            addViewport(drawing, *viewport, fit, appearances, sheet);
    const QRectF page = fit.shown.isEmpty() ? pageOf(fit.size) : fit.shown & pageOf(fit.size);
    const Projection projection{fit.toPage, fit.scale, Tolerance, page};
    addPart(sheet, drawing, appearances, projection, entities, ShownSpace::Kind::Paper);
    return sheet;
}

} // namespace

Sheet modelSheet(const drawing::Drawing &drawing)
{
    AppearanceResolver appearances(drawing, {});
    const std::vector<RecordId> entities = modelEntities(drawing);
    const Fit fit = fitTo(boundsOf(drawing, appearances, entities));
    Sheet sheet;
    sheet.size = fit.size;
    const Projection projection{fit.toPage, fit.scale, Tolerance, pageOf(fit.size)};
    addPart(sheet, drawing, appearances, projection, entities, ShownSpace::Kind::Model);
    return sheet;
}

Sheet layoutSheet(const drawing::Drawing &drawing, const drawing::Layout &layout)
{
    return paperSheet(drawing, pageSetup(drawing.database(), layout.object), paperEntities(drawing, layout));
}

Sheet currentSheet(const drawing::Drawing &drawing)
{
    if (integerVariable(drawing.database(), "$TILEMODE", 1) != 0)
        return modelSheet(drawing);
    const std::optional<drawing::Layout> active = drawing::activeLayout(drawing);
    return active ? layoutSheet(drawing, *active) : paperSheet(drawing, {}, activePaperEntities(drawing));
}

std::optional<Sheet> namedSheet(const drawing::Drawing &drawing, std::u16string_view name, const PageSetup &setup)
{
    if (drawing::isModelName(name))
        return paperSheet(drawing, setup, modelEntities(drawing));
    const std::optional<drawing::Layout> layout = drawing::findLayout(drawing.database(), name);
    return layout ? std::optional(paperSheet(drawing, setup, paperEntities(drawing, *layout))) : std::nullopt;
}

std::optional<Sheet> namedSheet(const drawing::Drawing &drawing, std::u16string_view name)
{
    if (drawing::isModelName(name))
        return modelSheet(drawing);
    const std::optional<drawing::Layout> layout = drawing::findLayout(drawing.database(), name);
    return layout ? std::optional(layoutSheet(drawing, *layout)) : std::nullopt;
}

} // namespace render
