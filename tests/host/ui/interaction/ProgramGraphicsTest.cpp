// What programs draw over the picture, and what they read of the person there.

#include "tests/host/ui/interaction/InteractionTest.h"

#include <QStatusBar>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

class ProgramGraphics : public InteractionTest
{
};

} // namespace

TEST_F(ProgramGraphics, GrdrawDrawsUntilRedraw)
{
    type("(grdraw '(10 10) '(60 10) 1)");
    EXPECT_TRUE(shows(Qt::red, 30, 10));
    EXPECT_EQ(value("(ssget \"_X\")"), "nil") << "it is not in the drawing";
    type("(redraw)");
    EXPECT_FALSE(shows(Qt::red, 30, 10));
}

TEST_F(ProgramGraphics, GrvecsDrawsManyUnderAMatrix)
{
    type("(grvecs '(1 (10 10) (60 10) 3 (10 20) (60 20)) '((1 0 0 0) (0 1 0 5) (0 0 1 0) (0 0 0 1)))");
    EXPECT_TRUE(shows(Qt::red, 30, 15));
    EXPECT_TRUE(shows(Qt::green, 30, 25));
}

TEST_F(ProgramGraphics, RedrawOfAnEntityHighlightsIt)
{
    type("(command \"_.line\" '(10 10) '(40 10) \"\")");
    type("(redraw (entlast) 3)");
    EXPECT_TRUE(isHighlighted(20, 10));
    type("(redraw (entlast) 4)");
    EXPECT_FALSE(isHighlighted(20, 10));
}

TEST_F(ProgramGraphics, GrtextShowsATextInTheStatusBar)
{
    type("(grtext -1 \"three doors\")");
    EXPECT_EQ(interface.window().statusBar()->currentMessage(), QStringLiteral("three doors"));
    type("(grtext)");
    EXPECT_EQ(interface.window().statusBar()->currentMessage(), QString());
}

TEST_F(ProgramGraphics, GrreadTellsClicksMovesAndKeys)
{
    later([this] { click(30, 20); });
    EXPECT_THAT(value("(grread)"), StartsWith("(3 ("));
    later([this] {
        move(10, 10);
        move(30, 20);
    });
    EXPECT_THAT(value("(grread T)"), StartsWith("(5 ("));
    later([this] { QTest::keyClick(input, Qt::Key_R); });
    EXPECT_EQ(value("(grread)"), "(2 114)");
    later([this] { QTest::keyClick(input, Qt::Key_Return); });
    EXPECT_EQ(value("(grread)"), "(2 13)");
    EXPECT_EQ(input->text(), QString()) << "keys that were read are not in the line";
    later([this] { escape(); });
    type("(grread)");
    EXPECT_THAT(output(), HasSubstr("Function cancelled"));
}
