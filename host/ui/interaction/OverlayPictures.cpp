#include "host/ui/interaction/OverlayPictures.h"

#include "host/palette/Palette.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int Foreground = 7; // as what is drawn without a colour: black or white

QColor colorOf(int number, const DrawingView &view)
{
    if (number <= 0 || number >= static_cast<int>(palette::Count) || number == Foreground)
        return view.ink();
    const palette::Color &color = palette::colors[static_cast<std::size_t>(number)];
    return {color.red, color.green, color.blue};
}

} // namespace

OverlayPictures::OverlayPictures(DrawingView &view, QStatusBar &statusBar, const EntityPicture::Source &source)
    : m_view(view), m_statusBar(statusBar), m_selected(source), m_highlighted(source)
{
    view.addOverlay(m_highlighted);
    view.addOverlay(m_selected);
    view.addOverlay(m_lines);
}

OverlayPictures::~OverlayPictures()
{
    m_view.removeOverlay(m_lines);
    m_view.removeOverlay(m_selected);
    m_view.removeOverlay(m_highlighted);
}

void OverlayPictures::showSelected(const std::vector<drawing::RecordId> &entities)
{
    m_selected.show(entities);
    m_highlighted.drawAnew(); // the drawing may have changed
    m_view.update();
}

void OverlayPictures::setHighlight(drawing::RecordId entity, Highlight highlight)
{
    std::vector<drawing::RecordId> entities = m_highlighted.entities();
    std::erase(entities, entity);
    if (highlight == Highlight::On)
        entities.push_back(entity);
    m_highlighted.show(std::move(entities));
    m_view.update();
}

void OverlayPictures::add(const std::vector<Line> &lines)
{
    m_lines.all.insert(m_lines.all.end(), lines.begin(), lines.end());
    m_view.update();
}

void OverlayPictures::clear()
{
    m_lines.all.clear();
    m_highlighted.hide();
    m_view.update();
}

void OverlayPictures::showText(const std::u16string &text)
{
    m_statusBar.showMessage(QString::fromStdU16String(text));
}

void OverlayPictures::Lines::paint(QPainter &painter, const DrawingView &view)
{
    for (const Line &line : all) {
        const Qt::PenStyle style = line.highlight == Highlight::On ? Qt::DashLine : Qt::SolidLine;
        painter.setPen(QPen(colorOf(line.color, view), 1, style));
        painter.drawLine(view.positionOf(line.from), view.positionOf(line.to));
    }
}
