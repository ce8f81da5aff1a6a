#pragma once

#include "host/ui/gui/DrawingFiles.h"
#include "host/ui/interaction/InteractiveDrawing.h"
#include "host/ui/view/DrawingArea.h"
#include "tests/host/ui/gui/GuiTest.h"

// A host in its window, with its drawing, a person's keys and mouse.
class InteractionTest : public GuiTest
{
protected:
    InteractionTest()
    {
        type("(progn (setvar \"CMDECHO\" 0) (setvar \"OSMODE\" 0))");
        QCoreApplication::processEvents();
        view().show({50, 40}, 80); // x from somewhere below 0 to somewhere above 100, y from 0 to 80
    }

    using GuiTest::type;
    void type(const char *text) { GuiTest::type(QString::fromLatin1(text)); }
    DrawingView &view() { return interactive.area().view(); }
    QPoint at(double x, double y) { return view().positionOf(geometry::Vector{x, y, 0}).toPoint(); }
    // What a click there gives: pixels are not as fine as places.
    QPointF placeOf(double x, double y) { return view().placeAt(at(x, y)); }
    void click(double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        move(x, y);
        QTest::mouseClick(&view(), Qt::LeftButton, modifiers, at(x, y));
    }
    // From beside it: a cursor that is there already would not be heard of.
    void move(double x, double y)
    {
        QTest::mouseMove(&view(), at(x, y) + QPoint(2, 2));
        QTest::mouseMove(&view(), at(x, y));
    }
    void rightClick() { QTest::mouseClick(&view(), Qt::RightButton, Qt::NoModifier, at(50, 40)); }
    void escape() { QTest::keyClick(input, Qt::Key_Escape); }
    // The value of an expression as it is printed.
    std::string value(const char *expression)
    {
        type(expression);
        const std::string all = output();
        const std::size_t end = all.size() - 1, begin = all.rfind('\n', end - 1) + 1;
        return all.substr(begin, end - begin);
    }
    // Whether the place, or a pixel beside it, has this colour: the crosshair may lie on the place itself.
    bool shows(const QColor &color, double x, double y)
    {
        const QImage image = picture();
        for (int i = 0; i < 9; ++i)
            if (image.pixelColor(at(x, y) + QPoint(i % 3 - 1, i / 3 - 1)) == color)
                return true;
        return false;
    }
    bool isHighlighted(double x, double y) { return shows(view().palette().color(QPalette::Highlight), x, y); }
    QImage picture() { return view().grab().toImage(); }

    DrawingFiles files{interface.window(), runner, document};
    InteractiveDrawing interactive{interface, runner, document};
};
