#pragma once

#include "tests/host/ui/interaction/InteractionTest.h"

#include <QDir>

// The interactive program of the examples in the window, with its module.
class LabelBlocksTest : public InteractionTest
{
protected:
    LabelBlocksTest()
    {
        host.modules().load(QStringLiteral(MODULE_FILE));
        load("plan.lsp");
        load("label-blocks.lsp");
        showWholeUnits();
    }

    static QString example(const char *name)
    {
        return QDir(QStringLiteral(EXAMPLES_FOLDER)).filePath(QStringLiteral("label-blocks/") + QLatin1String(name));
    }
    void load(const char *name) { interface.window().openFile(example(name)); }

    // Every place with whole coordinates lies in the middle of a pixel, so that clicks are as exact as typed points.
    void showWholeUnits()
    {
        constexpr double PixelsPerUnit = 4, HalfPixel = 0.5 / PixelsPerUnit;
        const QPointF centre(50 + (view().width() % 2) * HalfPixel, 35 + (view().height() % 2) * HalfPixel);
        view().show(centre, view().height() / PixelsPerUnit);
        EXPECT_EQ(placeOf(30, 20), QPointF(30, 20));
    }

    // One step after the other, each when the program waits for it.
    void thenDo(std::vector<std::function<void()>> steps)
    {
        if (steps.empty())
            return;
        later([this, steps = std::move(steps)]() mutable {
            const std::function<void()> step = steps.front();
            steps.erase(steps.begin());
            step();
            thenDo(std::move(steps));
        });
    }
};
