// Places are put to what OSMODE asks for near the cursor.

#include "tests/host/ui/interaction/InteractionTest.h"

namespace {

class SnapTest : public InteractionTest
{
protected:
    SnapTest()
    {
        type("(progn (command \"_.line\" '(10 10) '(40 30) \"\") (command \"_.line\" '(10 30) '(40 10) \"\")"
             " (command \"_.circle\" '(80 40) 10))");
    }
    // What a click a little beside the place gives.
    std::string picked(int mode, double x, double y)
    {
        type(QStringLiteral("(setvar \"OSMODE\" %1)").arg(mode));
        later([this, x, y] { click(x, y); });
        return value("(mapcar 'rtos (getpoint))");
    }
};

} // namespace

TEST_F(SnapTest, EndsMiddlesCentresAndIntersections)
{
    EXPECT_EQ(picked(1, 11, 10.8), "(\"10.0000\" \"10.0000\" \"0.0000\")");
    EXPECT_EQ(picked(2, 25.3, 20.1), "(\"25.0000\" \"20.0000\" \"0.0000\")");
    EXPECT_EQ(picked(4, 90, 40.2), "(\"80.0000\" \"40.0000\" \"0.0000\")");
    EXPECT_EQ(picked(32, 25.3, 20.1), "(\"25.0000\" \"20.0000\" \"0.0000\")");
}

TEST_F(SnapTest, WithoutAModeOrSuppressedTheCursorItselfCounts)
{
    const std::string end = "(\"10.0000\" \"10.0000\" \"0.0000\")";
    EXPECT_NE(picked(0, 11, 10.8), end);
    EXPECT_NE(picked(1 + 16384, 11, 10.8), end);
    EXPECT_EQ(picked(1, 11, 10.8), end);
}

TEST_F(SnapTest, AModeThatIsTypedHoldsForOnePoint)
{
    type("(setvar \"OSMODE\" 1)");
    later([this] {
        type("mid");
        later([this] {
            EXPECT_EQ(prompt(), "of ");
            click(33, 25.5);
        });
    });
    EXPECT_EQ(value("(mapcar 'rtos (getpoint))"), "(\"25.0000\" \"20.0000\" \"0.0000\")");
}

TEST_F(SnapTest, ACentreThatIsTypedForIsFoundFromItsCircle)
{
    const auto clickTheCircle = [this] {
        later([this] {
            type("cen");
            later([this] { click(90, 40.2); });
        });
    };
    clickTheCircle();
    EXPECT_EQ(value("(mapcar 'rtos (getpoint))"), "(\"80.0000\" \"40.0000\" \"0.0000\")");
    clickTheCircle();
    type("(command \"_.line\" pause '(1 2) \"\")");
    EXPECT_EQ(value("(cdr (assoc 10 (entget (entlast))))"), "(80.0 40.0 0.0)");
}

TEST_F(SnapTest, AFootOnTheContinuationOfALineIsFoundFromTheLine)
{
    type("(command \"_.line\" '(10 60) '(20 60) \"\")");
    later([this] {
        type("per");
        later([this] { click(19, 60.2); });
    });
    type("(command \"_.line\" '(70 75) pause \"\")");
    EXPECT_EQ(value("(mapcar 'rtos (cdr (assoc 11 (entget (entlast)))))"), "(\"70.0000\" \"60.0000\" \"0.0000\")");
}

TEST_F(SnapTest, AModeThatIsTypedForACommandShowsItsMarker)
{
    QImage with;
    later([this, &with] {
        type("_end");
        later([this, &with] {
            move(12, 11.3);
            with = picture();
            click(12, 11.3);
            later([this] { click(60, 60); });
        });
    });
    type("(command \"_.line\" pause pause \"\")");
    EXPECT_EQ(with.pixelColor(at(10, 10) + QPoint(6, 0)), QColor(0xe0, 0x7b, 0x00));
    EXPECT_EQ(value("(cdr (assoc 10 (entget (entlast))))"), "(10.0 10.0 0.0)");
}

TEST_F(SnapTest, AMarkerShowsThePlace)
{
    type("(setvar \"OSMODE\" 1)");
    QImage with;
    later([this, &with] {
        move(12, 11.3);
        with = picture();
        escape();
    });
    type("(getpoint)");
    const QColor marker(0xe0, 0x7b, 0x00);
    EXPECT_EQ(with.pixelColor(at(10, 10) + QPoint(6, 0)), marker);
    EXPECT_NE(picture().pixelColor(at(10, 10) + QPoint(6, 0)), marker);
}
