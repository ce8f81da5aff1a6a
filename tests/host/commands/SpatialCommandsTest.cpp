#include "tests/host/commands/CommandTest.h"

#include "host/drawing/geometry/Extents.h"
#include "tests/host/drawing/Audit.h"

#include <cmath>

namespace {

using drawing::integerOf;
using drawing::placeOf;
using geometry::Vector;
using testing::ElementsAre;

class SpatialCommands : public CommandTest
{
protected:
    geometry::Box box() { return *geometry::extentsOf(m_document.drawing(), last()); }
};

TEST_F(SpatialCommands, PolylineInSpace)
{
    evaluate("(command \"_.3dpoly\" '(0 0 0) '(1 2 3) '(9 9 9) \"_u\" '(4 5 -6) \"\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (code) (cdr (assoc code (entget (entlast))))) '(0 70))"), "(\"POLYLINE\" 8)");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entnext (entnext (entlast))))))"), "(1.0 2.0 3.0)");
    EXPECT_EQ(evaluate("(cdr (assoc 70 (entget (entnext (entlast)))))"), "32");
    EXPECT_EQ(box(), (geometry::Box{{0, 0, -6}, {4, 5, 3}}));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(SpatialCommands, PolylineThatIsClosed)
{
    evaluate("(command \"_.3dpoly\" '(0 0 0) '(1 0 0) \"_c\" '(1 1 1) \"_c\")");
    EXPECT_EQ(evaluate("(cdr (assoc 70 (entget (entlast))))"), "9");
}

TEST_F(SpatialCommands, PolylineOfOnePointIsNone)
{
    evaluate("(command \"_.3dpoly\" '(0 0 0) \"_u\" \"\")");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(SpatialCommands, PointsAreInTheCoordinateSystemOfTheUser)
{
    evaluate("(command \"_.ucs\" \"_o\" '(10 0 5))");
    evaluate("(command \"_.3dpoly\" '(0 0 0) '(1 2 3) \"\")");
    EXPECT_EQ(box(), (geometry::Box{{10, 0, 5}, {11, 2, 8}}));
}

TEST_F(SpatialCommands, FacesThatGoOn)
{
    evaluate("(command \"_.3dface\" '(0 0 0) '(1 0 0) '(1 1 0) '(0 1 0) '(0 2 1) '(1 2 1) \"\")");
    EXPECT_THAT(types(), ElementsAre("3DFACE", "3DFACE"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 1, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 13), (Vector{1, 2, 1}));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(SpatialCommands, FaceOfThreeCornersWithHiddenEdges)
{
    evaluate("(command \"_.3dface\" \"_i\" '(0 0 0) '(1 0 0) \"_i\" '(1 1 0) \"\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 13), (Vector{1, 1, 0}));
    EXPECT_EQ(integerOf(lastGroups(), 70), 5);
}

TEST_F(SpatialCommands, SplineThroughItsPoints)
{
    evaluate("(command \"_.spline\" '(0 0) '(5 5) '(10 0) \"\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre("SPLINE"));
    EXPECT_EQ(box().minimum, (Vector{0, 0, 0}));
    EXPECT_NEAR(box().maximum.y, 5, 1e-9);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(SpatialCommands, SplineLeavesInTheDirectionOfItsTangent)
{
    evaluate("(command \"_.spline\" '(0 0) '(10 0) \"\" '(0 1) '(10 1))");
    const double swing = 10 * std::sqrt(3) / 18; // of the cubic with slopes 1 at both ends
    EXPECT_NEAR(box().maximum.y, swing, 1e-9);
    EXPECT_NEAR(box().minimum.y, -swing, 1e-9);
}

TEST_F(SpatialCommands, SplineThatIsClosedMeetsItself)
{
    evaluate("(command \"_.spline\" '(0 0) '(10 0) '(10 10) '(0 10) \"_c\" \"\")");
    const drawing::GroupList groups = lastGroups();
    const auto isPoint = [](const drawing::Group &group) { return group.code == 10; };
    const auto first = std::ranges::find_if(groups, isPoint);
    const auto last = std::find_if(groups.rbegin(), groups.rend(), isPoint);
    EXPECT_EQ(first->value, last->value);
}

TEST_F(SpatialCommands, DrawingsBeforeR13HaveNoSplines)
{
    openEmptyDrawing("AC1009");
    evaluate("(command \"_.spline\" '(0 0) '(5 5) '(10 0) \"\" \"\" \"\")");
    EXPECT_THAT(takePrinted(), testing::HasSubstr("A drawing before R13 has no SPLINE objects."));
    EXPECT_THAT(types(), ElementsAre());
}

} // namespace
