// Clicks in the drawing answer what programs and commands ask.

#include "tests/host/ui/interaction/InteractionTest.h"

#include "host/drawing/selection/EntityIndex.h"

#include <QAbstractEventDispatcher>

#include <cmath>

using testing::EndsWith;
using testing::HasSubstr;

namespace {

class ViewInputTest : public InteractionTest
{
protected:
    double number(const char *expression) { return std::stod(value(expression)); }
    int pixelsOf(QRgb color)
    {
        const QImage image = picture();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == color ? 1 : 0;
        return count;
    }
    double pixel() { return 1 / view().scale(); }
};

} // namespace

TEST_F(ViewInputTest, AClickGivesThePointThatGetpointAsksFor)
{
    later([this] { click(30, 20); });
    type("(setq p (getpoint \"\\nPoint: \"))");
    EXPECT_NEAR(number("(car p)"), 30, pixel());
    EXPECT_NEAR(number("(cadr p)"), 20, pixel());
    EXPECT_EQ(value("(caddr p)"), "0.0");
}

TEST_F(ViewInputTest, APointThatIsPickedLiesAtTheElevationAndIsLastpoint)
{
    type("(setvar \"ELEVATION\" 7.5)");
    later([this] { click(30, 20); });
    type("(setq p (getpoint))");
    EXPECT_EQ(value("(caddr p)"), "7.5");
    EXPECT_EQ(value("(equal p (getvar \"LASTPOINT\"))"), "T");
}

TEST_F(ViewInputTest, PointsAreOfTheUsersCoordinateSystem)
{
    type("(command \"_.ucs\" \"_Origin\" '(10 5 0))");
    type("(command \"_.ucs\" \"_Z\" 90)");
    later([this] { click(30, 20); });
    type("(setq p (getpoint))");
    EXPECT_NEAR(number("(car p)"), 15, pixel());
    EXPECT_NEAR(number("(cadr p)"), -20, pixel());
}

TEST_F(ViewInputTest, ATypedPointStillDoesAndEscCancels)
{
    later([this] { type("3,4"); });
    type("(setq p (getpoint))");
    EXPECT_EQ(value("!p"), "(3.0 4.0 0.0)");
    later([this] { escape(); });
    type("(setq p (getpoint \"\\nPoint: \"))");
    EXPECT_THAT(output(), HasSubstr("Point: *Cancel*\nerror: Function cancelled\n"));
}

TEST_F(ViewInputTest, EnterAndTheRightButtonAreAnEmptyAnswer)
{
    later([this] { rightClick(); });
    EXPECT_EQ(value("(getpoint)"), "nil");
    later([this] { type(""); });
    EXPECT_EQ(value("(getpoint)"), "nil");
}

TEST_F(ViewInputTest, DistancesAndAnglesAreGivenByOnePointOrTwo)
{
    later([this] { click(40, 10); });
    type("(setq d (getdist '(10 10)))");
    EXPECT_NEAR(number("!d"), 30, pixel());
    later([this] {
        click(20, 20);
        later([this] { click(20, 60); });
    });
    type("(setq d (getdist))");
    EXPECT_NEAR(number("!d"), 40, 2 * pixel());
    later([this] { click(10, 50); });
    type("(setq a (getangle '(10 10)))");
    EXPECT_NEAR(number("!a"), std::acos(0.0), 0.01);
    later([this] { click(10, 50); });
    type("(setq a (getorient '(10 10)))");
    EXPECT_NEAR(number("!a"), std::acos(0.0), 0.01);
}

TEST_F(ViewInputTest, OnlyRequestsForPlacesTakeClicks)
{
    later([this] {
        click(30, 20);
        type("7");
    });
    EXPECT_EQ(value("(getint)"), "7");
}

TEST_F(ViewInputTest, ALineFollowsTheCursorFromTheBasePoint)
{
    QImage without, with;
    later([this, &with] {
        move(90, 70);
        with = picture();
        escape();
    });
    without = picture();
    type("(getpoint '(10 10))");
    const QPoint between = (at(10, 10) + at(90, 70)) / 2;
    const QRect around(between - QPoint(6, 6), QSize(12, 12));
    EXPECT_NE(with.copy(around), without.copy(around));
    EXPECT_EQ(picture().copy(around), without.copy(around)) << "the line is gone after the answer";
}

TEST_F(ViewInputTest, ARectangleFollowsTheCursorForACorner)
{
    QImage with;
    later([this, &with] {
        move(80, 60);
        with = picture();
        click(80, 60);
    });
    const QPoint onEdge = at(20, 40), inside = at(50, 40);
    const QImage without = picture();
    type("(setq p (getcorner '(20 20)))");
    const QRect edge(onEdge - QPoint(2, 0), QSize(5, 1));
    EXPECT_NE(with.copy(edge), without.copy(edge));
    EXPECT_NE(with.pixel(inside), without.pixel(inside)) << "it is filled";
    EXPECT_NEAR(number("(car p)"), 80, pixel());
}

TEST_F(ViewInputTest, ARectangleMayBeDrawnWithTheButtonHeld)
{
    later([this] {
        QTest::mouseMove(&view(), at(20, 20));
        QTest::mousePress(&view(), Qt::LeftButton, Qt::NoModifier, at(20, 20));
        later([this] {
            QTest::mouseMove(&view(), at(60, 50));
            QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, at(60, 50));
        });
    });
    type("(setq a (getpoint) b (getcorner a))");
    EXPECT_NEAR(number("(car a)"), 20, pixel());
    EXPECT_NEAR(number("(car b)"), 60, pixel());
    EXPECT_NEAR(number("(cadr b)"), 50, pixel());
}

TEST_F(ViewInputTest, OrthoLeavesOneDirectionFromTheBase)
{
    type("(setvar \"ORTHOMODE\" 1)");
    later([this] { click(60, 18); });
    type("(setq p (getpoint '(10 10)))");
    EXPECT_NEAR(number("(car p)"), 60, pixel());
    EXPECT_NEAR(number("(cadr p)"), 10, 1e-9);
}

TEST_F(ViewInputTest, ClicksAnswerCommandsToo)
{
    later([this] {
        click(10, 10);
        later([this] {
            click(60, 40);
            later([this] { rightClick(); });
        });
    });
    type("line");
    EXPECT_EQ(value("(cdr (assoc 0 (entget (entlast))))"), "\"LINE\"");
    EXPECT_NEAR(number("(cadr (assoc 11 (entget (entlast))))"), 60, pixel());
}

TEST_F(ViewInputTest, WhatAProgramHasDrawnIsShownWhenItAsks)
{
    QImage shown;
    const QRect around(at(50, 40) - QPoint(0, 3), QSize(1, 7));
    const QImage before = picture();
    later([this, &shown] {
        later([this, &shown] { // the drawing is made ready before the program waits
            shown = picture();
            escape();
        });
    });
    type("(progn (command \"_.line\" '(0 40) '(100 40) \"\") (getpoint))");
    EXPECT_NE(shown.copy(around), before.copy(around));
}

TEST_F(ViewInputTest, AWindowThatIsIdleMakesReadyForTheFirstClickAndRestsThen)
{
    type("(repeat 60000 (entmake '((0 . \"POINT\") (10 1.0 2.0 0.0))))");
    constexpr int Turns = 20; // of the event loop; a part of the work is done in each
    for (int i = 0; i < Turns; ++i)
        QCoreApplication::processEvents();
    EXPECT_FALSE(document.session().entityIndex().prepare()); // else a part would have been left
    int wakes = 0;
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    const auto counting = QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, [&wakes] { ++wakes; });
    QTest::qWait(100);
    QObject::disconnect(counting);
    EXPECT_LT(wakes, 50);
}
