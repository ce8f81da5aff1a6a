#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;
using testing::ElementsAre;

class TransformCommands : public CommandTest
{
protected:
    void SetUp() override
    {
        m_line = add({{0, u"LINE"}, {8, u"0"}, {10, drawing::Point{1, 0, 0}}, {11, drawing::Point{3, 0, 0}}});
    }
    void expectLine(drawing::RecordId line, const Vector &start, const Vector &end)
    {
        EXPECT_LT(geometry::length(placeOf(database().groups(line), 10) - start), 1e-12);
        EXPECT_LT(geometry::length(placeOf(database().groups(line), 11) - end), 1e-12);
    }
    drawing::RecordId m_line = drawing::NoRecord;
};

TEST_F(TransformCommands, MoveByTwoPoints)
{
    evaluate("(command \"_.move\" (entlast) \"\" \"0,0\" \"10,20,30\")");
    expectLine(m_line, {11, 20, 30}, {13, 20, 30});
}

TEST_F(TransformCommands, MoveByADisplacement)
{
    evaluate("(command \"_.move\" \"_l\" \"\" \"10,20\" \"\")");
    expectLine(m_line, {11, 20, 0}, {13, 20, 0});
    evaluate("(command \"_.move\" \"_l\" \"\" \"_d\" '(0 0 5))");
    expectLine(m_line, {11, 20, 5}, {13, 20, 5});
}

TEST_F(TransformCommands, CopyMakesCopiesUntilEnterAndLeavesTheOriginal)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"0,0\" \"0,4\" \"0,5\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE"));
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    expectLine(last(), {1, 5, 0}, {3, 5, 0});
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(TransformCommands, CopyMakesOneCopyWhereCopymodeSaysSo)
{
    evaluate("(setvar \"COPYMODE\" 1) (command \"_.copy\" \"_l\" \"\" \"0,0\" \"0,5\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    expectLine(last(), {1, 5, 0}, {3, 5, 0});
    EXPECT_NE(database().record(last()).handle, database().record(m_line).handle);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(TransformCommands, CopyMultiple)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"_m\" \"0,0\" \"0,5\" \"0,6\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE"));
    expectLine(last(), {1, 6, 0}, {3, 6, 0});
}

TEST_F(TransformCommands, CopyAsksForTheModeThatStays)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"_o\" \"_s\" \"_d\" '(0 1))");
    EXPECT_EQ(evaluate("(list (getvar \"COPYMODE\") (getvar \"CMDACTIVE\"))"), "(1 0)");
    evaluate("(command \"_.copy\" \"_l\" \"\" \"_o\" \"\" '(0 0) '(0 1))");
    EXPECT_EQ(evaluate("(list (getvar \"COPYMODE\") (getvar \"CMDACTIVE\"))"), "(1 0)");
    evaluate("(command \"_.copy\" \"_l\" \"\" \"_o\" \"_m\" '(0 0) '(0 1) '(0 2) \"_e\")");
    EXPECT_EQ(evaluate("(list (getvar \"COPYMODE\") (getvar \"CMDACTIVE\"))"), "(0 0)");
    EXPECT_EQ(types().size(), 5u);
}

TEST_F(TransformCommands, CopyByADisplacementMakesOneCopy)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"0,5\" \"\")");
    expectLine(last(), {1, 5, 0}, {3, 5, 0});
    evaluate("(command \"_.copy\" \"_l\" \"\" \"\" \"0,6\")");
    expectLine(last(), {1, 11, 0}, {3, 11, 0});
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(types().size(), 3u);
}

TEST_F(TransformCommands, CopyTakesItsLastCopyBack)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"0,0\" \"0,4\" \"0,5\" \"_u\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    evaluate("(command \"_u\") (command \"_u\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
    EXPECT_EQ(takePrinted(), "\nEverything has been undone.\n");
    evaluate("(command \"0,6\" \"\")");
    expectLine(last(), {1, 6, 0}, {3, 6, 0});
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

// As programs have it that know of no second copy.
TEST_F(TransformCommands, CopyEndsWhereAnotherCommandBegins)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"0,0\" \"0,5\") (command \"_.point\" '(7 7))");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "POINT"));
    evaluate("(command \"_undo\" \"_be\" \"_.copy\" \"_l\" \"\" \"0,0\" \"0,5\") (command \"undo\" \"_end\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "POINT", "POINT"));
    evaluate("(command \"_.copy\" \"_l\" \"\" \"0,0\" \"0,5\" \"_.erase\" \"_l\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "POINT", "POINT"));
    evaluate("(command \"_.copy\" \"_l\" \"\" \"0,0\" \"0,5\") (command \"CLAYER\" \"0\")");
    evaluate("(command-s \"_.copy\" \"_l\" \"\" \"0,0\" \"0,5\")");
    EXPECT_EQ(types().size(), 6u);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(takePrinted(), "");
}

TEST_F(TransformCommands, Rotate)
{
    evaluate("(command \"_.rotate\" \"_l\" \"\" \"1,0\" 90)");
    expectLine(m_line, {1, 0, 0}, {1, 2, 0});
    evaluate("(command \"_.rotate\" \"_l\" \"\" \"1,0\" \"_r\" 90 0)");
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    evaluate("(command \"_.rotate\" \"_l\" \"\" \"1,0\" \"-90\")");
    expectLine(m_line, {1, 0, 0}, {1, -2, 0});
    evaluate("(command \"_.rotate\" \"_l\" \"\" \"1,0\" \"_r\" -90 \"_p\" \"5,5\" \"5,6\")");
    expectLine(m_line, {1, 0, 0}, {1, 2, 0});
    evaluate("(command \"_.rotate\" \"_l\" \"\" \"0,0\" \"_c\" 180)");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
}

TEST_F(TransformCommands, Scale)
{
    evaluate("(command \"_.scale\" \"_l\" \"\" \"0,0\" 2)");
    expectLine(m_line, {2, 0, 0}, {6, 0, 0});
    evaluate("(command \"_.scale\" \"_l\" \"\" \"0,0\" \"_r\" 4 \"_p\" \"5,5\" \"7,5\")");
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    evaluate("(command \"_.scale\" \"_l\" \"\" \"0,0\" \"_r\" 2 4 \"_.scale\" \"_l\" \"\" \"0,0\" \"_r\" 4 2)");
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    evaluate("(command \"_.scale\" \"_l\" \"\" \"0,0\" 0 -2)");
    EXPECT_EQ(takePrinted(), "\nValue must be positive and nonzero.\n\nValue must be positive and nonzero.\n");
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    evaluate("(command 2)");
    expectLine(m_line, {2, 0, 0}, {6, 0, 0});
    evaluate("(command \"_.scale\" \"_l\" \"\" \"0,0\" \"_r\" 0 2 -1 3)");
    expectLine(m_line, {3, 0, 0}, {9, 0, 0});
}

TEST_F(TransformCommands, MirrorKeepsTheOriginalUnlessToldOtherwise)
{
    evaluate("(command \"_.mirror\" \"_l\" \"\" \"0,0\" \"1,1\" \"\")");
    expectLine(m_line, {1, 0, 0}, {3, 0, 0});
    expectLine(last(), {0, 1, 0}, {0, 3, 0});
    evaluate("(command \"_.mirror\" \"_l\" \"\" \"0,0\" \"1,1\" \"_y\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    expectLine(last(), {1, 0, 0}, {3, 0, 0});
}

TEST_F(TransformCommands, OneUndoTakesItAllBack)
{
    evaluate("(command \"_.copy\" \"_l\" \"\" \"_m\" \"0,0\" \"0,5\" \"0,6\" \"\") (command \"_.u\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(TransformCommands, WhatCannotBeMovedIsSaid)
{
    add({{0, u"UNHEARD_OF"}, {8, u"0"}});
    evaluate("(command \"_.move\" \"_all\" \"\" \"0,0\" \"0,5\")");
    EXPECT_EQ(takePrinted(), "\n1 object(s) could not be changed.\n");
    expectLine(m_line, {1, 5, 0}, {3, 5, 0});
}

TEST_F(TransformCommands, WhatCannotBeChangedIsNotCopiedOntoItself)
{
    add({{0, u"3DSOLID"}, {8, u"0"}});
    evaluate("(command \"_.copy\" \"_all\" \"\" '(0 0) '(1 1) \"_.mirror\" \"_all\" \"\" '(0 0) '(1 1) \"_n\""
             " \"_.rotate\" \"_all\" \"\" '(0 0) \"_c\" 90)");
    const std::vector<std::string> now = types();
    EXPECT_EQ(std::ranges::count(now, "3DSOLID"), 1);
}

} // namespace
