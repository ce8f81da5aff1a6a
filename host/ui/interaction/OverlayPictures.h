#pragma once

#include "host/kernel/windows/DrawingOverlay.h"
#include "host/ui/interaction/EntityPicture.h"

#include <QStatusBar>

// Shows over the view what programs and commands want to be seen there.
class OverlayPictures final : public DrawingOverlay
{
public:
    OverlayPictures(DrawingView &view, QStatusBar &statusBar, const EntityPicture::Source &source);
    ~OverlayPictures();

    void showSelected(const std::vector<drawing::RecordId> &entities) override;
    void setHighlight(drawing::RecordId entity, Highlight highlight) override;
    void add(const std::vector<Line> &lines) override;
    void clear() override;
    void showText(const std::u16string &text) override;

private:
    class Lines final : public ViewOverlay
    {
    public:
        void paint(QPainter &painter, const DrawingView &view) override;
        std::vector<Line> all;
    };

    DrawingView &m_view;
    QStatusBar &m_statusBar;
    EntityPicture m_selected, m_highlighted;
    Lines m_lines;
};
