#include "host/drawing/snap/Snap.h"

#include "tests/host/drawing/geometry/SampleEntities.h"

#include <cmath>

namespace snap {
namespace {

using geometry::integer;
using geometry::place;
using geometry::Vector;

class SnapTest : public geometry::GeometryTest
{
protected:
    std::optional<Snap> at(const Vector &cursor, Modes modes, std::optional<Vector> from = std::nullopt)
    {
        return snapAt(m_drawing, entitiesOfTest, {cursor, 0.5, from}, modes);
    }
    void expectPlace(const std::optional<Snap> &snap, const Vector &place, Mode mode)
    {
        ASSERT_TRUE(snap);
        EXPECT_LT(length(snap->place - place), 1e-9) << testing::PrintToString(snap->place);
        EXPECT_EQ(snap->mode, mode);
    }
    void add(std::u16string type, Groups groups)
    {
        entitiesOfTest.push_back(GeometryTest::add(std::move(type), std::move(groups)));
    }
    void addCircle(double x, double y, double radius) { add(u"CIRCLE", {place(10, x, y), {40, radius}}); }

    std::vector<drawing::RecordId> entitiesOfTest;
};

TEST_F(SnapTest, TheEndsAndTheMiddleOfALineAreFoundFromAnywhereOnIt)
{
    add(u"LINE", {place(10, 0, 0, 1), place(11, 10, 0, 3)});
    expectPlace(at({4, 0.3, 0}, End), {0, 0, 1}, End);
    expectPlace(at({6, 0.3, 0}, End), {10, 0, 3}, End);
    expectPlace(at({9, 0.3, 0}, Middle), {5, 0, 2}, Middle);
    EXPECT_FALSE(at({9, 0.6, 0}, Middle));
}

TEST_F(SnapTest, ACircleHasACentreWhichCanBePointedAtToo)
{
    addCircle(5, 5, 3);
    expectPlace(at({8, 5.2, 0}, Center), {5, 5, 0}, Center);
    expectPlace(at({5.1, 5.1, 0}, Center), {5, 5, 0}, Center);
    expectPlace(at({8, 5.2, 0}, Quadrant), {8, 5, 0}, Quadrant);
    EXPECT_FALSE(at({8, 5.2, 0}, End));
}

TEST_F(SnapTest, AnArcHasOnlyTheQuadrantsThatItReaches)
{
    add(u"ARC", {place(10, 0, 0), {40, 2.0}, {50, 45.0}, {51, 135.0}});
    const double diagonal = std::sqrt(2.0);
    expectPlace(at({1.4, 1.4, 0}, Quadrant), {0, 2, 0}, Quadrant);
    expectPlace(at({1.4, 1.4, 0}, Middle), {0, 2, 0}, Middle);
    expectPlace(at({1.4, 1.4, 0}, End), {diagonal, diagonal, 0}, End);
}

TEST_F(SnapTest, WhereLinesCrossInSpaceAndOnlyAsSeen)
{
    add(u"LINE", {place(10, 0, 0), place(11, 10, 10)});
    add(u"LINE", {place(10, 0, 10), place(11, 10, 0)});
    expectPlace(at({5.2, 5.2, 0}, Intersection), {5, 5, 0}, Intersection);
    add(u"LINE", {place(10, 0, 8, 7), place(11, 10, 8, 7)});
    EXPECT_FALSE(at({8.1, 8.1, 0}, Intersection));
    expectPlace(at({8.1, 8.1, 0}, ApparentIntersection), {8, 8, 0}, ApparentIntersection);
}

TEST_F(SnapTest, PerpendicularsBeginAtThePointBefore)
{
    add(u"LINE", {place(10, 0, 0), place(11, 10, 0)});
    expectPlace(at({2, 0, 0}, Perpendicular, Vector{7, 5, 0}), {7, 0, 0}, Perpendicular);
    expectPlace(at({9, 0, 0}, Perpendicular, Vector{12, 5, 0}), {12, 0, 0}, Perpendicular);
    EXPECT_FALSE(at({2, 0, 0}, Perpendicular));
}

TEST_F(SnapTest, TangentsTouchACircleOnTheSideOfTheCursor)
{
    addCircle(0, 0, 3);
    const double angle = std::acos(3.0 / 5);
    expectPlace(at({1.8, 2.4, 0}, Tangent, Vector{5, 0, 0}), {3 * std::cos(angle), 3 * std::sin(angle), 0}, Tangent);
    expectPlace(at({1.8, -2.4, 0}, Tangent, Vector{5, 0, 0}), {3 * std::cos(angle), -3 * std::sin(angle), 0}, Tangent);
}

TEST_F(SnapTest, TheNearestPlaceYieldsToOthersInTheAperture)
{
    add(u"LINE", {place(10, 0, 0), place(11, 10, 0)});
    expectPlace(at({3, 0.2, 0}, Nearest | End), {3, 0, 0}, Nearest);
    expectPlace(at({0.3, 0.2, 0}, Nearest | End), {0, 0, 0}, End);
}

TEST_F(SnapTest, PointsAndTextsAndBlocksHaveOnePlace)
{
    add(u"POINT", {place(10, 2, 2)});
    add(u"TEXT", {place(10, 20, 20), {40, 1.0}, {1, std::u16string(u"MMMM")}});
    expectPlace(at({2.2, 2.2, 0}, Node), {2, 2, 0}, Node);
    expectPlace(at({21, 20.4, 0}, Insertion), {20, 20, 0}, Insertion);
}

TEST_F(SnapTest, InABlockItsPlacesAndItsInsertionAreFound)
{
    addIn(addBlock(u"B", {1, 1, 0}), u"LINE", {place(10, 1, 1), place(11, 4, 1)});
    entitiesOfTest.push_back(addInsert(u"B", {place(10, 10, 10), {41, 2.0}, {42, 2.0}, {43, 2.0}}));
    expectPlace(at({15, 10, 0}, End), {16, 10, 0}, End);
    expectPlace(at({15, 10, 0}, Insertion), {10, 10, 0}, Insertion);
    EXPECT_EQ(at({15, 10, 0}, End)->entity, entitiesOfTest.front());
}

TEST_F(SnapTest, OfAPolylineOnlyTheSegmentThatIsPointedAtCounts)
{
    add(u"LWPOLYLINE", {integer(90, 3), integer(70, 0), place(10, 0, 0), place(10, 10, 0), place(10, 10, 30)});
    expectPlace(at({10, 20, 0}, Middle), {10, 15, 0}, Middle);
    expectPlace(at({3, 0, 0}, Middle), {5, 0, 0}, Middle);
}

TEST(SnapModes, AreNamedByThreeLettersOrMore)
{
    EXPECT_EQ(modesFromText(u"_end,MID, cen"), End | Middle | Center);
    EXPECT_EQ(modesFromText(u"_intersection"), Intersection);
    EXPECT_EQ(modesFromText(u"_non"), None);
    EXPECT_EQ(modesFromText(u"qui,per"), Perpendicular);
    EXPECT_FALSE(modesFromText(u"en"));
    EXPECT_FALSE(modesFromText(u"1,2"));
    EXPECT_FALSE(modesFromText(u"ends"));
    EXPECT_FALSE(modesFromText(u""));
    EXPECT_EQ(namesOf(End | Middle), u"endpoint or midpoint");
}

} // namespace
} // namespace snap
