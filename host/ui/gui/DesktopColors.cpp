#include "host/ui/gui/DesktopColors.h"

#include <QApplication>
#include <QPalette>

namespace {

QPalette darkPalette()
{
    const QColor window(0x2B, 0x2D, 0x30), base(0x1E, 0x1F, 0x22), button(0x3A, 0x3D, 0x41), text(0xDF, 0xE1, 0xE5);
    const QColor dimmed(0x80, 0x84, 0x8A), accent(0x35, 0x74, 0xD6), link(0x7F, 0xB8, 0xFF);
    QPalette palette(text, button, button.lighter(130), button.darker(160), button.darker(120), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, base.lighter(130));
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, dimmed);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, link);
    palette.setColor(QPalette::LinkVisited, link.darker(120));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dimmed);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, button);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, dimmed);
    return palette;
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

} // namespace

void useColorScheme(ColorScheme scheme)
{
    QApplication::setPalette(QPalette()); // Qt's own
    if (scheme != ColorScheme::Dark || isDark(QApplication::palette()))
        return;
    QApplication::setPalette(darkPalette());
}
