#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

#include <cmath>

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;
using testing::ElementsAre;

class ShapeCommands : public CommandTest
{
protected:
    double area()
    {
        return std::stod(evaluate("(command \"_.area\" \"_o\" (entlast)) (rtos (getvar \"AREA\") 2 9)").substr(1));
    }
};

TEST_F(ShapeCommands, EllipseByItsAxis)
{
    evaluate("(command \"_.ellipse\" \"0,0\" \"10,0\" 2)");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{5, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{5, 0, 0}));
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 0.4);
    EXPECT_NEAR(area(), 10 * M_PI, 1e-8);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(ShapeCommands, EllipseByItsCentreWithTheLongerAxisSecond)
{
    evaluate("(command \"_.ellipse\" \"_c\" \"1,1\" \"3,1\" 4)");
    EXPECT_NEAR(placeOf(lastGroups(), 11).y, 4, 1e-12);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 0.5);
}

TEST_F(ShapeCommands, PolygonInsideAroundAndByItsEdge)
{
    evaluate("(command \"_.polygon\" 6 \"0,0\" \"_i\" 2)");
    EXPECT_EQ(integerOf(lastGroups(), 90), 6);
    EXPECT_NEAR(area(), 6 * std::sqrt(3), 1e-8);
    evaluate("(command \"_.polygon\" 4 \"0,0\" \"_c\" 2)");
    EXPECT_NEAR(area(), 16, 1e-8);
    evaluate("(command \"_.polygon\" 4 \"_e\" \"0,0\" \"3,0\")");
    EXPECT_NEAR(area(), 9, 1e-8);
    evaluate("(command \"_.polygon\" 2 1025 4 \"0,0\" \"_c\" 0 3)");
    EXPECT_EQ(takePrinted(), "\nRequires an integer between 3 and 1024.\n\nRequires an integer between 3 and 1024.\n"
                             "\nValue must be positive and nonzero.\n");
    EXPECT_NEAR(area(), 36, 1e-8);
}

TEST_F(ShapeCommands, DonutIsAWidePolyline)
{
    evaluate("(command \"_.donut\" 2 4 \"5,5\" \"10,10\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE", "LWPOLYLINE"));
    EXPECT_EQ(realOf(lastGroups(), 40), 1);
    EXPECT_EQ(realOf(lastGroups(), 42), 1);
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{8.5, 10, 0}));
}

TEST_F(ShapeCommands, EndlessLines)
{
    evaluate("(command \"_.xline\" \"0,0\" \"0,5\" \"\")");
    EXPECT_NEAR(placeOf(lastGroups(), 11).y, 1, 1e-12);
    evaluate("(command \"_.xline\" \"_h\" \"0,5\" \"0,7\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 7, 0}));
    EXPECT_THAT(types(), ElementsAre("XLINE", "XLINE", "XLINE"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(ShapeCommands, RaysFromOnePoint)
{
    evaluate("(command \"_.ray\" \"1,2\" \"4,2\" \"1,7\" \"\")");
    EXPECT_THAT(types(), ElementsAre("RAY", "RAY"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 0}));
    EXPECT_NEAR(placeOf(lastGroups(), 11).y, 1, 1e-12);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

} // namespace
