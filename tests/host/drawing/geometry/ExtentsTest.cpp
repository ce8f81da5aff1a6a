#include "tests/host/drawing/geometry/SampleEntities.h"

namespace geometry {
namespace {

using Extents = GeometryTest;

TEST_F(Extents, LineWithThickness)
{
    expectBox(extents(add(u"LINE", {place(10, 1, 2, 3), place(11, -1, 5, 3), {39, 2.0}})), {-1, 2, 3}, {1, 5, 5});
    expectBox(extents(add(u"LINE", {place(10, 0, 0), place(11, 1, 0), {39, 2.0}, place(210, 0, -1, 0)})), {0, -2, 0},
              {1, 0, 0});
}

TEST_F(Extents, EntitiesWithoutAnEndOrWithoutGeometryHaveNone)
{
    EXPECT_FALSE(hasExtents(add(u"RAY", {place(10, 0, 0), place(11, 1, 0)})));
    EXPECT_FALSE(hasExtents(add(u"XLINE", {place(10, 0, 0), place(11, 1, 0)})));
    EXPECT_FALSE(hasExtents(add(u"UNHEARD_OF", {place(10, 0, 0)})));
    EXPECT_FALSE(hasExtents(add(u"LWPOLYLINE", {integer(90, 0), integer(70, 0)})));
    EXPECT_FALSE(hasExtents(add(u"TEXT", {place(10, 0, 0), {40, 1.0}, {1, u""}})));
    EXPECT_FALSE(hasExtents(addInsert(u"NOT_THERE")));
}

TEST_F(Extents, BulgeOfOneIsHalfACircleToTheRightOfTheWay)
{
    const auto id = add(u"LWPOLYLINE", {integer(90, 2),
                                        integer(70, 0),
                                        {10, drawing::Point{0, 0, 0, 2}},
                                        {42, 1.0},
                                        {10, drawing::Point{4, 0, 0, 2}}});
    expectBox(extents(id), {0, -2, 0}, {4, 0, 0});
}

TEST_F(Extents, BulgesTooSlightForACentre)
{
    const auto height = [&](double bulge) {
        const auto id = add(u"LWPOLYLINE", {integer(90, 2),
                                            integer(70, 0),
                                            {10, drawing::Point{0, 0, 0, 2}},
                                            {42, bulge},
                                            {10, drawing::Point{2, 0, 0, 2}}});
        return -extents(id).minimum.y;
    };
    for (const double bulge : {1e-5, 1e-7, 1e-9}) // the height of the arc is the bulge times half the chord
        EXPECT_NEAR(height(bulge), bulge, 2e-11);
}

TEST_F(Extents, WidthOfAllVerticesGoesBeforeTheirOwn)
{
    const auto id = add(u"LWPOLYLINE", {integer(90, 2),
                                        integer(70, 0),
                                        {43, 2.0},
                                        {10, drawing::Point{0, 0, 0, 2}},
                                        {10, drawing::Point{4, 0, 0, 2}}});
    expectBox(extents(id), {0, -1, 0}, {4, 1, 0});
}

TEST_F(Extents, SharpCornersOfWidePolylinesAreNotDrawnOut)
{
    const auto id = add(u"LWPOLYLINE", {integer(90, 3),
                                        integer(70, 0),
                                        {43, 2.0},
                                        {10, drawing::Point{0, 0, 0, 2}},
                                        {10, drawing::Point{10, 0, 0, 2}},
                                        {10, drawing::Point{0, 1, 0, 2}}});
    EXPECT_LT(extents(id).maximum.x, 10.2);
}

TEST_F(Extents, PolylinesHaveTheirVerticesFromTheRecordsBehindThem)
{
    const auto id = add(u"POLYLINE", {integer(66, 1), place(10, 0, 0, 7), integer(70, 0), {40, 1.0}, {41, 1.0}});
    add(u"VERTEX", {place(10, 1, 1)});
    const auto second = add(u"VERTEX", {place(10, 5, 1)});
    add(u"SEQEND", {});
    add(u"LINE", {place(10, -100, 0), place(11, 100, 0)});
    expectBox(extents(id), {1, 0.5, 7}, {5, 1.5, 7});
    database().replace(second, {place(10, 9, 1)});
    expectBox(extents(id), {1, 0.5, 7}, {9, 1.5, 7});
}

TEST_F(Extents, OfACurveFittedToVerticesTheFrameDoesNotCount)
{
    const auto id = add(u"POLYLINE", {integer(66, 1), place(10, 0, 0), integer(70, 4)});
    add(u"VERTEX", {place(10, 0, 0), integer(70, 8)});
    add(u"VERTEX", {place(10, 50, 50), integer(70, 16)});
    add(u"VERTEX", {place(10, 2, 1), integer(70, 8)});
    add(u"SEQEND", {});
    expectBox(extents(id), {0, 0, 0}, {2, 1, 0});
}

TEST_F(Extents, SplineThroughFitPointsAlone)
{
    const auto id = add(u"SPLINE", {integer(71, 3), place(11, 0, 0), place(11, 1, 1), place(11, 2, 0)});
    const Box box = extents(id);
    expectBox(box, {0, 0, 0}, {2, box.maximum.y, 0});
    EXPECT_GE(box.maximum.y, 1);
}

TEST_F(Extents, SplineWhoseKnotsAreWrongHasNone)
{
    EXPECT_FALSE(hasExtents(add(u"SPLINE", {integer(71, 3), {40, 0.0}, {40, 1.0}, place(10, 0, 0), place(10, 1, 1)})));
}

TEST_F(Extents, EllipseEdgesOfHatchesAreTakenSoThatTheLoopCloses)
{
    const double quarter = std::numbers::pi / 4; // parameter of the place (2 cos, sin): seen at atan(1/2)
    const Vector end{2 * std::cos(quarter), std::sin(quarter), 0};
    const auto hatch = [&](double degrees) {
        return add(u"HATCH", {place(10, 0, 0),
                              integer(70, 1),
                              integer(91, 1),
                              integer(92, 1),
                              integer(93, 2),
                              integer(72, 3),
                              {10, drawing::Point{0, 0, 0, 2}},
                              {11, drawing::Point{2, 0, 0, 2}},
                              {40, 0.5},
                              {50, 0.0},
                              {51, degrees},
                              integer(73, 1),
                              integer(72, 1),
                              {10, drawing::Point{end.x, end.y, 0, 2}},
                              {11, drawing::Point{2, 0, 0, 2}},
                              integer(97, 0),
                              integer(75, 0)});
    };
    const double seen = std::atan2(end.y, end.x) * 180 / std::numbers::pi;
    for (const double degrees : {seen, 45.0}) // as both are found in files
        expectBox(extents(hatch(degrees)), {end.x, 0, 0}, {2, end.y, 0});
}

TEST_F(Extents, SeedPointsOfHatchesDoNotCount)
{
    const auto id = add(u"HATCH", {place(10, 0, 0, 3),
                                   integer(70, 1),
                                   integer(91, 1),
                                   integer(92, 2),
                                   integer(72, 0),
                                   integer(73, 1),
                                   integer(93, 2),
                                   {10, drawing::Point{0, 0, 0, 2}},
                                   {10, drawing::Point{1, 1, 0, 2}},
                                   integer(97, 0),
                                   integer(75, 0),
                                   integer(76, 1),
                                   integer(98, 1),
                                   {10, drawing::Point{50, 50, 0, 2}}});
    expectBox(extents(id), {0, 0, 3}, {1, 1, 3});
}

TEST_F(Extents, ImagesCountAsFarAsTheyAreShown)
{
    const Groups groups = {place(10, 1, 1),
                           place(11, 0.5, 0),
                           place(12, 0, 0.5),
                           {13, drawing::Point{8, 4, 0, 2}},
                           integer(70, 7),
                           integer(280, 1),
                           integer(71, 1),
                           integer(91, 2),
                           {14, drawing::Point{-0.5, -0.5, 0, 2}},
                           {14, drawing::Point{3.5, 1.5, 0, 2}}};
    expectBox(extents(add(u"IMAGE", groups)), {1, 2, 0}, {3, 3, 0}); // pixels count from the top
    Groups whole = groups;
    whole[5] = integer(280, 0);
    expectBox(extents(add(u"IMAGE", whole)), {1, 1, 0}, {5, 3, 0});
}

TEST_F(Extents, ViewportsAreWindowsOfThePaper)
{
    expectBox(extents(add(u"VIEWPORT", {place(10, 5, 5), {40, 4.0}, {41, 2.0}, integer(69, 2)})), {3, 4, 0}, {7, 6, 0});
}

TEST_F(Extents, LeadersCountWithTheirArrow)
{
    const Groups groups = {{3, u"STANDARD"}, integer(71, 1), integer(72, 0), place(10, 0, 0), place(10, 5, 0)};
    const Box box = extents(add(u"LEADER", groups));
    EXPECT_EQ(box.minimum.x, 0);
    EXPECT_GT(box.maximum.y, 0);
    EXPECT_DOUBLE_EQ(box.maximum.y, -box.minimum.y);
    Groups without = groups;
    without[1] = integer(71, 0);
    expectBox(extents(add(u"LEADER", without)), {0, 0, 0}, {5, 0, 0});
}

TEST_F(Extents, MultilinesReachAsFarAsTheirElements)
{
    const auto corner = [](double x, double y, double miterX, double miterY, double offset) -> Groups {
        return {place(11, x, y), place(12, 1, 0), place(13, miterX, miterY),
                integer(74, 2),  {41, offset},    {41, 0.0},
                integer(75, 0),  integer(74, 2),  {41, -1.0},
                {41, 0.0},       integer(75, 0)};
    };
    Groups groups = {integer(70, 1), integer(71, 1), integer(72, 2), integer(73, 2)};
    for (const Groups &each : {corner(0, 0, 0, 1, 2), corner(10, 0, 0, 1, 2)})
        groups.insert(groups.end(), each.begin(), each.end());
    expectBox(extents(add(u"MLINE", groups)), {0, -1, 0}, {10, 2, 0});

    const Groups third = corner(20, 30, 1, 0, 4);
    groups.insert(groups.end(), third.begin(), third.end());
    expectBox(extents(add(u"MLINE", groups)), {0, -1, 0}, {24, 30, 0});
    groups.resize(groups.size() - 4); // the last corner lacks the second element: there is only the first
    expectBox(extents(add(u"MLINE", groups)), {0, 2, 0}, {24, 30, 0});
}

TEST_F(Extents, FollowEveryChangeAndEveryStepBack)
{
    const auto line = add(u"LINE", {place(10, 0, 0), place(11, 1, 1)});
    addIn(addBlock(u"B"), u"POINT", {place(10, 5, 5)});
    const auto insert = addInsert(u"B");
    expectBox(extents(line), {0, 0, 0}, {1, 1, 0});
    expectBox(extents(insert), {5, 5, 0}, {5, 5, 0});
    database().journal().nextStep();
    database().replace(line, {place(10, 0, 0), place(11, 7, 1)});
    addIn(m_drawing.tables().find(drawing::known::Block, u"B"), u"POINT", {place(10, 9, 9)});
    expectBox(extents(line), {0, 0, 0}, {7, 1, 0});
    expectBox(extents(insert), {5, 5, 0}, {9, 9, 0});
    database().journal().undo();
    expectBox(extents(line), {0, 0, 0}, {1, 1, 0});
    expectBox(extents(insert), {5, 5, 0}, {5, 5, 0});
    database().journal().redo();
    expectBox(extents(line), {0, 0, 0}, {7, 1, 0});

    drawing::Drawing other; // the same number means another entity there
    drawing::Database &database = other.database();
    const auto end = database.endOf(drawing::ensureEntities(database));
    ASSERT_EQ(database.add(drawing::RecordKind::Entity, {{0, u"POINT"}, place(10, 3, 3)}, end), line);
    EXPECT_EQ(extentsOf(other, line), (Box{{3, 3, 0}, {3, 3, 0}}));
    expectBox(extents(line), {0, 0, 0}, {7, 1, 0});
}

} // namespace
} // namespace geometry
