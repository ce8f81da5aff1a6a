#include "tests/host/commands/CommandTest.h"

#include "host/drawing/DrawingWriter.h"

namespace {

class DrawingExtentsTest : public CommandTest
{
protected:
    std::string corners() { return evaluate("(list (getvar \"EXTMIN\") (getvar \"EXTMAX\"))"); }
    const std::string m_ofNothing = "((1.0e+20 1.0e+20 1.0e+20) (-1.0e+20 -1.0e+20 -1.0e+20))";
};

} // namespace

TEST_F(DrawingExtentsTest, AreTurnedInsideOutWhereNothingIs)
{
    EXPECT_EQ(corners(), m_ofNothing);
}

TEST_F(DrawingExtentsTest, FollowEveryChange)
{
    evaluate("(command \"_.line\" '(1 2 3) '(4 5 6) \"\")");
    EXPECT_EQ(corners(), "((1.0 2.0 3.0) (4.0 5.0 6.0))");
    evaluate("(command \"_.circle\" '(10 10) 5)");
    EXPECT_EQ(corners(), "((1.0 2.0 0.0) (15.0 15.0 6.0))");
    evaluate("(command \"_.undo\" 1)");
    EXPECT_EQ(corners(), "((1.0 2.0 3.0) (4.0 5.0 6.0))");
    evaluate("(command \"_.erase\" (entlast) \"\")");
    EXPECT_EQ(corners(), m_ofNothing);
}

TEST_F(DrawingExtentsTest, LeaveOutWhatIsOnFrozenLayers)
{
    evaluate("(entmake '((0 . \"LINE\") (8 . \"Off\") (10 0 0) (11 1 1)))"
             "(entmake '((0 . \"LINE\") (8 . \"Cold\") (10 0 0) (11 9 9)))"
             "(command \"_.-layer\" \"_off\" \"Off\" \"_freeze\" \"Cold\" \"\")");
    EXPECT_EQ(corners(), "((0.0 0.0 0.0) (1.0 1.0 0.0))");
    evaluate("(command \"_.-layer\" \"_thaw\" \"Cold\" \"\")");
    EXPECT_EQ(corners(), "((0.0 0.0 0.0) (9.0 9.0 0.0))");
}

TEST_F(DrawingExtentsTest, AreThoseOfTheCurrentSpace)
{
    evaluate("(command \"_.line\" '(1 1) '(2 2) \"\")");
    evaluate("(setvar \"CTAB\" \"Layout1\") (command \"_.line\" '(5 5) '(7 8) \"\")");
    EXPECT_EQ(corners(), "((5.0 5.0 0.0) (7.0 8.0 0.0))");
    evaluate("(command \"_.mview\" '(0 0) '(10 10))");
    EXPECT_EQ(corners(), "((0.0 0.0 0.0) (10.0 10.0 0.0))");
    evaluate("(command \"_.mspace\")");
    EXPECT_EQ(corners(), "((1.0 1.0 0.0) (2.0 2.0 0.0))");
    evaluate("(command \"_.pspace\")");
    EXPECT_EQ(corners(), "((0.0 0.0 0.0) (10.0 10.0 0.0))");
    evaluate("(setvar \"CTAB\" \"Model\")");
    EXPECT_EQ(corners(), "((1.0 1.0 0.0) (2.0 2.0 0.0))");
}

TEST_F(DrawingExtentsTest, ChangeNothingInTheDrawing)
{
    evaluate("(command \"_.line\" '(1 2 3) '(4 5 6) \"\")");
    const std::string before = drawing::writtenDrawing(database());
    EXPECT_EQ(evaluate("(setvar \"EXTMIN\" '(0 0 0))").substr(0, 6), "error:");
    corners();
    EXPECT_EQ(drawing::writtenDrawing(database()), before);
}
