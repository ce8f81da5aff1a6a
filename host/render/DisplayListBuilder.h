#pragma once

#include "host/render/Appearance.h"
#include "host/render/Dashes.h"
#include "host/render/DisplayList.h"
#include "host/render/HatchLines.h"
#include "host/render/PointMarks.h"
#include "host/render/TextStyles.h"

namespace render {

// How the world comes onto a page.
struct Projection
{
    geometry::Matrix toPage; // x and y of what it gives; z is the depth, which nothing is hidden by
    double scale = 1;        // a length of 1 in the world on the page
    double tolerance = 0.01; // how far curves may be off on the page
    QRectF window;           // of the page that is drawn; endless lines end there
    double linetypeScale = 1;
};

// Turns entities into what is drawn, with their layers, colours, linetypes and fonts.
class DisplayListBuilder : public geometry::ShapeSink, private DashSink
{
public:
    DisplayListBuilder(const drawing::Drawing &drawing, AppearanceResolver &appearances, const Projection &projection,
                       DisplayList &list);

    void add(drawing::RecordId entity);
    std::size_t cutEntities() const { return m_cutEntities; } // not whole, as they show too much of blocks

    void path(const geometry::Path &path, const geometry::Origin &origin) override;
    void area(const geometry::Area &area, const geometry::Origin &origin) override;
    void face(const geometry::Face &face, const geometry::Origin &origin) override;
    void text(const geometry::Text &text, const geometry::Origin &origin) override;
    void paragraphs(const geometry::Paragraphs &paragraphs, const geometry::Origin &origin) override;
    void point(const geometry::Vector &place, const geometry::Origin &origin) override;
    void image(const geometry::Image &image, const geometry::Origin &origin) override;
    void ray(const geometry::Ray &ray, const geometry::Origin &origin) override;
    void window(const geometry::Window &window, const geometry::Origin &origin) override;

private:
    using Loops = std::vector<std::vector<QPointF>>;

    // DashSink; in the world, or on the page while a hatch is drawn
    void dash(std::span<const geometry::Vector> points) override;
    void label(const LinetypeElement &element, const geometry::Vector &place,
               const geometry::Vector &direction) override;

    bool begin(const geometry::Origin &origin); // false: it is not seen
    QPointF onPage(const geometry::Vector &place) const;
    void addLine(std::span<const geometry::Vector> points, bool isClosed);
    void addSegments(const geometry::Path &path);
    bool isPatternTooFine() const;
    void addArea(const Loops &loops, const geometry::Origin &origin);
    void addPattern(const geometry::Area &area);
    void addOutlines(const geometry::Area &area);
    void addBackground(const text::Layout &layout, const geometry::Paragraphs &paragraphs,
                       const geometry::Origin &origin);
    Outlines outlinesOf(const geometry::Area &area) const;
    void addLayout(const text::Layout &layout, const geometry::Vector &insertion, const geometry::Vector &right,
                   const geometry::Vector &up);
    std::uint32_t rgbOf(const text::InlineColor &color) const;
    double worldTolerance() const { return m_projection.tolerance / m_projection.scale; }

    const drawing::Drawing &m_drawing;
    AppearanceResolver &m_appearances;
    Projection m_projection;
    DisplayList &m_list;
    geometry::BlockBudget m_budget;
    std::size_t m_cutEntities = 0;
    TextStyles m_styles;
    PointMarks m_marks;
    Appearance m_appearance; // of the shape that is being added
    DisplayItem m_item;
    bool m_isOnPage = false; // what dash() gets
};

} // namespace render
