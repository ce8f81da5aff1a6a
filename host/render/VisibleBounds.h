#pragma once

#include "host/render/Appearance.h"
#include "host/render/TextStyles.h"

#include <QRectF>

namespace render {

// The smallest rectangle of the page around what entities show, to a thousandth of their size. Endless lines do not
// count.
class VisibleBounds : public geometry::ShapeSink
{
public:
    VisibleBounds(const drawing::Drawing &drawing, AppearanceResolver &appearances, const geometry::Matrix &toPage);

    void add(drawing::RecordId entity) { geometry::shapesOf(m_drawing, entity, *this, &m_budget); }
    QRectF bounds() const; // null when nothing is seen

    void path(const geometry::Path &path, const geometry::Origin &origin) override;
    void area(const geometry::Area &area, const geometry::Origin &origin) override;
    void face(const geometry::Face &face, const geometry::Origin &origin) override;
    void text(const geometry::Text &text, const geometry::Origin &origin) override;
    void paragraphs(const geometry::Paragraphs &paragraphs, const geometry::Origin &origin) override;
    void point(const geometry::Vector &place, const geometry::Origin &origin) override;
    void image(const geometry::Image &image, const geometry::Origin &origin) override;
    void window(const geometry::Window &window, const geometry::Origin &origin) override;

private:
    void add(const geometry::Vector &place);
    void add(const geometry::Curve &curve);
    template <class AnyText> void addInk(const AnyText &text, const geometry::Origin &origin);
    bool isSeen(const geometry::Origin &origin) { return m_appearances.of(origin).has_value(); }

    const drawing::Drawing &m_drawing;
    AppearanceResolver &m_appearances;
    geometry::BlockBudget m_budget;
    TextStyles m_styles;
    geometry::Matrix m_toPage;
    geometry::Box m_box;
};

} // namespace render
