#include "host/ui/gui/DesktopColors.h"

#include <QApplication>
#include <QPalette>

namespace {

QPalette darkPalette()
{
    const QColor window(0x38, 0x3A, 0x3E), base(0x1A, 0x1B, 0x1E), button(0x48, 0x4B, 0x50), text(0xE2, 0xE4, 0xE8);
    const QColor dimmed(0x80, 0x84, 0x8A), accent(0x35, 0x74, 0xD6), link(0x7F, 0xB8, 0xFF);
    QPalette palette(text, button, button.lighter(130), button.darker(160), button.darker(120), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, base.lighter(140));
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
