#pragma once

#include <QProxyStyle>

// The style of the desktop, with boxes to tick that can be seen on dark backgrounds: Qt's own style draws them in a
// darker shade of the window, which is hardly another than a dark background.
class CheckBoxStyle : public QProxyStyle
{
public:
    explicit CheckBoxStyle(const QString &style) : QProxyStyle(style) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};
