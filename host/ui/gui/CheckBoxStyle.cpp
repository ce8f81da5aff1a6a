#include "host/ui/gui/CheckBoxStyle.h"

#include <QStyleOption>

namespace {

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

} // namespace

void CheckBoxStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                  const QWidget *widget) const
{
    const auto *box = element == PE_IndicatorCheckBox ? qstyleoption_cast<const QStyleOptionButton *>(option) : nullptr;
    if (!box || !isDark(box->palette)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton lighter(*box);
    lighter.palette.setColor(QPalette::Window, box->palette.color(QPalette::PlaceholderText));
    QProxyStyle::drawPrimitive(element, &lighter, painter, widget);
}
