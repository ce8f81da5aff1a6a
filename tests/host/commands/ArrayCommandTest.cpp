#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::placeOf;
using geometry::Vector;

class ArrayCommand : public CommandTest
{
protected:
    ArrayCommand() { evaluate("(command \"_.line\" \"10,0\" \"12,0\" \"\") (setq a (entlast))"); }
};

TEST_F(ArrayCommand, RowsAndColumns)
{
    evaluate("(command \"_.array\" a \"\" \"_r\" 2 3 5 10)");
    EXPECT_EQ(types().size(), 6u);
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{30, 5, 0}));
    evaluate("(command \"_.u\")");
    EXPECT_EQ(types().size(), 1u);
}

TEST_F(ArrayCommand, ACellGivesBothDistances)
{
    evaluate("(command \"_.-array\" a \"\" \"\" 2 2 \"0,0\" \"7,3\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{17, 3, 0}));
}

TEST_F(ArrayCommand, AroundAPointTurned)
{
    evaluate("(command \"_.array\" a \"\" \"_p\" \"0,0\" 4 360 \"_y\")");
    EXPECT_EQ(types().size(), 4u);
    EXPECT_LT(length(placeOf(lastGroups(), 10) - Vector{0, -10, 0}), 1e-9);
    EXPECT_LT(length(placeOf(lastGroups(), 11) - Vector{0, -12, 0}), 1e-9);
}

TEST_F(ArrayCommand, AroundAPointUpright)
{
    evaluate("(command \"_.array\" a \"\" \"_p\" \"0,0\" 3 180 \"_n\")");
    EXPECT_EQ(types().size(), 3u);
    EXPECT_LT(length(placeOf(lastGroups(), 10) - Vector{-12, 0, 0}), 1e-9);
    EXPECT_LT(length(placeOf(lastGroups(), 11) - Vector{-10, 0, 0}), 1e-9);
}

TEST_F(ArrayCommand, ByTheAngleBetween)
{
    evaluate("(command \"_.array\" a \"\" \"_p\" \"0,0\" \"\" -90 30 \"_y\")");
    EXPECT_EQ(types().size(), 4u);
    EXPECT_LT(length(placeOf(lastGroups(), 10) - Vector{0, -10, 0}), 1e-9);
}

TEST_F(ArrayCommand, OneElementIsNothingToDo)
{
    takePrinted();
    evaluate("(command \"_.array\" a \"\" \"_r\" 1 1)");
    EXPECT_EQ(takePrinted(), "\nOne-element array, nothing to do.\n");
}

TEST_F(ArrayCommand, PreselectedObjectsAreTakenWithoutAsking)
{
    evaluate("(command \"_.pselect\" a \"\") (command \"_.erase\")");
    EXPECT_TRUE(types().empty());
}

} // namespace
