#include "host/drawing/edit/Transform.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/Stretch.h"
#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>
#include <random>

namespace drawing {
namespace {

using geometry::Matrix;
using geometry::Vector;

// Places of an entity's shapes that say where it is. A path has the same ones in either direction.
class Places final : public geometry::ShapeSink
{
public:
    std::vector<Vector> places;

    void path(const geometry::Path &path, const geometry::Origin &) override { addCurves(path.curves); }
    void area(const geometry::Area &area, const geometry::Origin &) override
    {
        for (const auto &loop : area.loops)
            addCurves(loop);
    }
    void text(const geometry::Text &text, const geometry::Origin &) override
    {
        addFrame(text.insertion, text.right, text.up);
    }
    void face(const geometry::Face &face, const geometry::Origin &) override
    {
        places.insert(places.end(), std::begin(face.corners), std::end(face.corners));
    }
    void point(const Vector &place, const geometry::Origin &) override { places.push_back(place); }
    void image(const geometry::Image &image, const geometry::Origin &) override
    {
        addFrame(image.insertion, image.right, image.up);
    }
    void ray(const geometry::Ray &ray, const geometry::Origin &) override { places.push_back(ray.origin); }

private:
    void addFrame(const Vector &place, const Vector &right, const Vector &up)
    {
        places.insert(places.end(), {place, place + right, place + up});
    }
    void addCurves(std::span<const geometry::Curve> curves)
    {
        for (const geometry::Curve &curve : curves)
            std::visit([this](const auto &one) { add(one); }, curve);
    }
    void add(const geometry::Line &line)
    {
        places.insert(places.end(), {line.start, line.end, (line.start + line.end) * 0.5});
    }
    void add(const geometry::EllipticArc &arc)
    {
        constexpr int Pieces = 8;
        // Where a full turn begins does not matter.
        const double start = arc.isFull() ? 0 : arc.start, sweep = arc.isFull() ? 0 : arc.end - arc.start;
        for (int piece = 0; piece <= Pieces; ++piece)
            places.push_back(arc.isFull() ? arc.centre : arc.at(start + sweep * piece / Pieces));
        if (arc.isFull())
            places.push_back({length(arc.cosineAxis), length(arc.sineAxis), 0});
    }
    void add(const geometry::Nurbs &nurbs) { places.insert(places.end(), nurbs.points.begin(), nurbs.points.end()); }
};

std::vector<Vector> placesOf(const Drawing &drawing, RecordId entity)
{
    Places places;
    geometry::shapesOf(drawing, entity, places);
    return places.places;
}

// The greatest distance from a place to the nearest of the others.
double farthest(const std::vector<Vector> &places, const std::vector<Vector> &others)
{
    double most = 0;
    for (const Vector &place : places) {
        double nearest = INFINITY;
        for (const Vector &other : others)
            nearest = std::min(nearest, length(place - other));
        most = std::max(most, nearest);
    }
    return most;
}

const GroupList samples[] = {
    {{0, u"LINE"}, {8, u"0"}, {10, Point{1, 2, 3}}, {11, Point{4, -1, 2}}},
    {{0, u"POINT"}, {8, u"0"}, {10, Point{1, 2, 3}}},
    {{0, u"CIRCLE"}, {8, u"0"}, {10, Point{1, 2, 3}}, {40, 2.5}, {210, Point{0.6, 0, 0.8}}},
    {{0, u"ARC"}, {8, u"0"}, {10, Point{1, 2, 3}}, {40, 2.5}, {50, 300.0}, {51, 40.0}},
    {{0, u"ARC"}, {8, u"0"}, {10, Point{1, 2, 3}}, {40, 2.5}, {50, 10.0}, {51, 200.0}, {210, Point{0, 0, -1}}},
    {{0, u"ELLIPSE"},
     {100, u"AcDbEntity"},
     {8, u"0"},
     {100, u"AcDbEllipse"},
     {10, Point{1, 2, 3}},
     {11, Point{3, 1, 0}},
     {210, Point{0, 0, 1}},
     {40, 0.4},
     {41, 0.5},
     {42, 2.5}},
    {{0, u"SOLID"}, {8, u"0"}, {10, Point{0, 0, 1}}, {11, Point{3, 0, 1}}, {12, Point{0, 2, 1}}, {13, Point{4, 2, 1}}},
    {{0, u"3DFACE"}, {8, u"0"}, {10, Point{0, 0, 1}}, {11, Point{3, 0, 2}}, {12, Point{3, 2, 1}}, {13, Point{0, 2, 5}}},
    {{0, u"LWPOLYLINE"},
     {100, u"AcDbEntity"},
     {8, u"0"},
     {100, u"AcDbPolyline"},
     {90, std::int64_t{3}},
     {70, std::int64_t{1}},
     {38, 2.0},
     {10, Point{0, 0, 0, 2}},
     {42, 0.7},
     {10, Point{5, 1, 0, 2}},
     {42, -0.3},
     {10, Point{3, 6, 0, 2}},
     {42, 0.0},
     {210, Point{0, 0.6, 0.8}}},
    {{0, u"SPLINE"},
     {100, u"AcDbEntity"},
     {8, u"0"},
     {100, u"AcDbSpline"},
     {70, std::int64_t{8}},
     {71, std::int64_t{2}},
     {72, std::int64_t{6}},
     {73, std::int64_t{3}},
     {40, 0.0},
     {40, 0.0},
     {40, 0.0},
     {40, 1.0},
     {40, 1.0},
     {40, 1.0},
     {10, Point{0, 0, 0}},
     {10, Point{3, 5, 1}},
     {10, Point{6, 0, 2}}},
    {{0, u"HATCH"},
     {100, u"AcDbEntity"},
     {8, u"0"},
     {100, u"AcDbHatch"},
     {10, Point{0, 0, 2}},
     {210, Point{0, 0, 1}},
     {2, u"SOLID"},
     {70, std::int64_t{1}},
     {71, std::int64_t{0}},
     {91, std::int64_t{2}},
     {92, std::int64_t{2}},
     {72, std::int64_t{1}},
     {73, std::int64_t{1}},
     {93, std::int64_t{3}},
     {10, Point{0, 0, 0, 2}},
     {42, 0.0},
     {10, Point{9, 0, 0, 2}},
     {42, 0.5},
     {10, Point{9, 9, 0, 2}},
     {42, 0.0},
     {97, std::int64_t{0}},
     {92, std::int64_t{1}},
     {93, std::int64_t{4}},
     {72, std::int64_t{1}},
     {10, Point{2, 1, 0, 2}},
     {11, Point{3, 1, 0, 2}},
     {72, std::int64_t{2}},
     {10, Point{3, 2, 0, 2}},
     {40, 1.0},
     {50, 90.0},
     {51, 200.0},
     {73, std::int64_t{0}},
     {72, std::int64_t{2}},
     {10, Point{4, 2, 0, 2}},
     {40, 1.5},
     {50, 20.0},
     {51, 130.0},
     {73, std::int64_t{1}},
     {72, std::int64_t{3}},
     {10, Point{5, 3, 0, 2}},
     {11, Point{2, 1, 0, 2}},
     {40, 0.5},
     {50, 30.0},
     {51, 120.0},
     {73, std::int64_t{1}},
     {97, std::int64_t{0}},
     {75, std::int64_t{0}},
     {76, std::int64_t{1}},
     {98, std::int64_t{0}}},
    {{0, u"TEXT"}, {8, u"0"}, {10, Point{1, 2, 0}}, {40, 2.0}, {1, u"text"}, {50, 30.0}, {41, 0.7}},
    {{0, u"INSERT"}, {8, u"0"}, {2, u"Part"}, {10, Point{1, 2, 0}}, {41, 2.0}, {42, 3.0}, {43, 1.5}, {50, 30.0}},
};

class Transform : public testing::Test
{
protected:
    Transform()
    {
        const RecordId block = addBlock(m_drawing.database(), m_drawing.tables(), {u"Part", {1, 1, 0}});
        addEntity(m_drawing, {{0, u"LINE"}, {8, u"0"}, {10, Point{1, 2, 0}}, {11, Point{4, -1, 2}}}, {block});
        addEntity(m_drawing, {{0, u"ARC"}, {8, u"0"}, {10, Point{1, 2, 0}}, {40, 2.0}, {50, 10.0}, {51, 80.0}},
                  {block});
    }
    Matrix randomSimilarity(bool mirrors)
    {
        std::uniform_real_distribution<double> number(-5, 5);
        const double scale = std::abs(number(m_random)) + 0.1;
        const Vector axis = geometry::normalized({number(m_random), number(m_random), number(m_random)});
        Matrix matrix = Matrix::translation({number(m_random), number(m_random), number(m_random)}) *
                        Matrix::rotation(axis, number(m_random)) * Matrix::scale(scale, scale, scale);
        return mirrors ? matrix * Matrix::mirror({1, 2, 3}, geometry::normalized({number(m_random), 1, 0})) : matrix;
    }
    void check(const GroupList &groups, const Matrix &matrix)
    {
        const RecordId entity = addEntity(m_drawing, groups);
        ASSERT_NE(entity, NoRecord);
        std::vector<Vector> expected = placesOf(m_drawing, entity);
        ASSERT_FALSE(expected.empty());
        const double scale = length(matrix.x);
        const bool isRound = std::get<std::u16string>(groups[0].value) == u"CIRCLE";
        for (Vector &place : expected)
            place = isRound && &place == &expected.back() ? place * scale : matrix.place(place);
        ASSERT_TRUE(transformEntity(m_drawing, entity, {matrix, true}));
        const std::vector<Vector> found = placesOf(m_drawing, entity);
        ASSERT_EQ(found.size(), expected.size());
        EXPECT_LT(farthest(found, expected), 1e-9);
        EXPECT_LT(farthest(expected, found), 1e-9);
    }

    Drawing m_drawing;
    std::mt19937 m_random{4711};
};

TEST_F(Transform, ShapesOfEveryTypeGoWhereTheMatrixSays)
{
    for (int round = 0; round < 200; ++round)
        for (const GroupList &groups : samples) {
            SCOPED_TRACE(testing::Message() << round << " " << &groups - samples);
            check(groups, randomSimilarity(round % 2 == 1));
            if (HasFailure())
                return;
        }
}

TEST_F(Transform, VerticesAndAttributesGoAlong)
{
    const RecordId polyline =
        addEntity(m_drawing, {{0, u"POLYLINE"}, {8, u"0"}, {66, std::int64_t{1}}, {70, std::int64_t{1}}});
    for (const Point &place : {Point{0, 0, 0}, Point{5, 0, 0}, Point{5, 5, 0}})
        addPart(m_drawing, polyline, {{0, u"VERTEX"}, {8, u"0"}, {10, place}, {42, 0.4}});
    addPart(m_drawing, polyline, {{0, u"SEQEND"}, {8, u"0"}});
    const Matrix matrix = randomSimilarity(true);
    std::vector<Vector> expected = placesOf(m_drawing, polyline);
    for (Vector &place : expected)
        place = matrix.place(place);
    ASSERT_TRUE(transformEntity(m_drawing, polyline, {matrix, false}));
    EXPECT_LT(farthest(placesOf(m_drawing, polyline), expected), 1e-9);
    EXPECT_LT(farthest(expected, placesOf(m_drawing, polyline)), 1e-9);
}

TEST_F(Transform, AnUnknownTypeIsLeftAlone)
{
    Database &database = m_drawing.database();
    const RecordId entity = database.add(RecordKind::Entity, {{0, u"UNHEARD_OF"}, {8, u"0"}, {10, Point{1, 1, 1}}},
                                         database.endOf(ensureEntities(database)));
    const GroupList before = database.groups(entity);
    EXPECT_FALSE(transformEntity(m_drawing, entity, {Matrix::translation({1, 0, 0}), false}));
    EXPECT_EQ(database.groups(entity), before);
}

TEST_F(Transform, PlacesInExtendedDataGoAlong)
{
    const RecordId line = addEntity(m_drawing, {{0, u"LINE"},
                                                {8, u"0"},
                                                {10, Point{}},
                                                {11, Point{1, 0, 0}},
                                                {1001, u"ACAD"},
                                                {1011, Point{1, 2, 3}},
                                                {1041, 5.0},
                                                {1010, Point{1, 2, 3}}});
    transformEntity(m_drawing, line, {Matrix::translation({10, 0, 0}) * Matrix::scale(2, 2, 2), false});
    const GroupList groups = m_drawing.database().groups(line);
    EXPECT_EQ(*findValue<Point>(groups, 1011), (Point{12, 4, 6}));
    EXPECT_EQ(*findValue<double>(groups, 1041), 10);
    EXPECT_EQ(*findValue<Point>(groups, 1010), (Point{1, 2, 3})); // a value, not a place
}

TEST_F(Transform, PlacesInTheExtendedDataOfAHatchGoAlong)
{
    const GroupList groups{{0, u"HATCH"},
                           {8, u"0"},
                           {10, Point{0, 0, 0}},
                           {210, Point{0, 0, 1}},
                           {2, u"SOLID"},
                           {70, std::int64_t{1}},
                           {71, std::int64_t{0}},
                           {91, std::int64_t{0}},
                           {75, std::int64_t{0}},
                           {76, std::int64_t{1}},
                           {98, std::int64_t{0}},
                           {1001, u"ACAD"},
                           {1010, Point{1, 2, 3}},
                           {1011, Point{1, 2, 3}},
                           {1012, Point{1, 2, 3}},
                           {1013, Point{0, 2, 0}},
                           {1040, 5.0},
                           {1041, 5.0},
                           {1042, 6.0}};
    const std::optional<GroupList> moved =
        transformed(groups, {Matrix::translation({10, 0, 0}) * Matrix::scale(2, 2, 2), false});
    ASSERT_TRUE(moved);
    EXPECT_EQ(*findValue<Point>(*moved, 1010), (Point{1, 2, 3})); // a value, not a place
    EXPECT_EQ(*findValue<Point>(*moved, 1011), (Point{12, 4, 6}));
    EXPECT_EQ(*findValue<Point>(*moved, 1012), (Point{2, 4, 6}));
    EXPECT_EQ(*findValue<Point>(*moved, 1013), (Point{0, 1, 0}));
    EXPECT_EQ(*findValue<double>(*moved, 1040), 5);
    EXPECT_EQ(*findValue<double>(*moved, 1041), 10);
    EXPECT_EQ(*findValue<double>(*moved, 1042), 12);
}

TEST_F(Transform, AMirroredTextStaysReadable)
{
    const Matrix mirror = Matrix::mirror({0, 0, 0}, {1, 0, 0}); // left becomes right
    const RecordId text =
        addEntity(m_drawing, {{0, u"TEXT"}, {8, u"0"}, {10, Point{5, 0, 0}}, {40, 2.0}, {1, u"text"}, {50, 0.0}});
    transformEntity(m_drawing, text, {mirror, false});
    const GroupList groups = m_drawing.database().groups(text);
    EXPECT_EQ(*findValue<double>(groups, 50), 0);
    EXPECT_EQ(*findValue<std::int64_t>(groups, 72), 2); // its right end is where the left one was
    EXPECT_EQ(*findValue<Point>(groups, 11), (Point{-5, 0, 0}));
}

TEST_F(Transform, ACopyHasItsOwnHandleAndNothingThatPointsBack)
{
    const RecordId line = addEntity(m_drawing, {{0, u"LINE"}, {8, u"0"}, {10, Point{}}, {11, Point{1, 0, 0}}});
    GroupList groups = m_drawing.database().groups(line);
    groups.insert(groups.begin() + 2, {{102, u"{ACAD_REACTORS"}, {330, Handle{0x10}}, {102, u"}"}});
    m_drawing.database().replace(line, groups);
    const RecordId copy = copyEntity(m_drawing, line);
    EXPECT_NE(m_drawing.database().record(copy).handle, m_drawing.database().record(line).handle);
    EXPECT_EQ(findGroup(m_drawing.database().groups(copy), 102), nullptr);
    EXPECT_NE(findGroup(m_drawing.database().groups(line), 102), nullptr);
}

TEST_F(Transform, ADimensionInItsOwnPictureIsMovedAndCopiedOnce)
{
    Database &database = m_drawing.database();
    const RecordId block = addBlock(database, m_drawing.tables(), {u"*D1"});
    const GroupList dimension = {{0, u"DIMENSION"}, {8, u"0"}, {2, u"*D1"}, {10, Point{1, 0, 0}}};
    const RecordId inside = database.add(RecordKind::Entity, dimension, database.endOf(block));
    const RecordId outside = database.add(RecordKind::Entity, dimension, database.endOf(ensureEntities(database)));
    EXPECT_TRUE(transformEntity(m_drawing, outside, {Matrix::translation({10, 0, 0}), false}));
    EXPECT_EQ(placeOf(database.groups(outside), 10), (Vector{11, 0, 0}));
    EXPECT_EQ(placeOf(database.groups(inside), 10), (Vector{11, 0, 0}));
    const RecordId copy = copyTransformed(m_drawing, outside, {Matrix::translation({10, 0, 0}), false});
    EXPECT_EQ(textOf(database.groups(copy), 2), u"*D2");
    EXPECT_EQ(placeOf(database.groups(copy), 10), (Vector{21, 0, 0}));
    EXPECT_EQ(placeOf(database.groups(inside), 10), (Vector{11, 0, 0})); // the copy's picture is another one
    const RecordId picture = database.firstIn(m_drawing.tables().find(known::Block, u"*D2"));
    EXPECT_EQ(textOf(database.groups(picture), 2), u"*D2");
    EXPECT_EQ(placeOf(database.groups(picture), 10), (Vector{21, 0, 0}));
}

TEST_F(Transform, APlanePolylineWithoutElevationGetsTheHeightThatItIsMovedTo)
{
    const RecordId polyline = addEntity(m_drawing, {{0, u"LWPOLYLINE"},
                                                    {100, u"AcDbEntity"},
                                                    {8, u"0"},
                                                    {100, u"AcDbPolyline"},
                                                    {90, std::int64_t{2}},
                                                    {70, std::int64_t{0}},
                                                    {10, Point{0, 0, 0, 2}},
                                                    {10, Point{1, 0, 0, 2}}});
    ASSERT_NE(polyline, NoRecord);
    transformEntity(m_drawing, polyline, {Matrix::translation({1, 2, 0}), false});
    EXPECT_FALSE(hasGroup(m_drawing.database().groups(polyline), 38));
    transformEntity(m_drawing, polyline, {Matrix::translation({0, 0, 5}), false});
    EXPECT_EQ(realOf(m_drawing.database().groups(polyline), 38), 5);
    EXPECT_LT(farthest(placesOf(m_drawing, polyline), {{1, 2, 5}, {2, 2, 5}, {1.5, 2, 5}}), 1e-9);
}

TEST_F(Transform, TheColumnsOfAParagraphGoAlongByRulesOfTheirOwn)
{
    Database &database = m_drawing.database();
    const RecordId paragraph = database.add(RecordKind::Entity,
                                            {{0, u"MTEXT"},
                                             {100, u"AcDbEntity"},
                                             {8, u"0"},
                                             {100, u"AcDbMText"},
                                             {10, Point{100, 200, 0}},
                                             {40, 2.5},
                                             {71, std::int64_t{1}},
                                             {1, u"text"},
                                             {50, 0.0},
                                             {101, u"Embedded Object"},
                                             {70, std::int64_t{4}},
                                             {10, Point{1, 0, 0}},
                                             {11, Point{100, 200, 0}},
                                             {40, 20.0},
                                             {71, std::int64_t{2}},
                                             {44, 7.5},
                                             {1001, u"ACAD"},
                                             {1041, 5.0}},
                                            database.endOf(ensureEntities(database)));
    const auto moved = [&](const Matrix &matrix) {
        transformEntity(m_drawing, paragraph, {matrix, false});
        GroupList groups = database.groups(paragraph);
        groups.erase(groups.begin(), std::ranges::find(groups, 101, &Group::code) + 1);
        return groups;
    };
    GroupList embedded = moved(Matrix::translation({10, 0, 0}));
    EXPECT_EQ(placeOf(embedded, 10), (Vector{1, 0, 0}));
    EXPECT_EQ(placeOf(embedded, 11), (Vector{110, 200, 0}));
    EXPECT_EQ(realOf(embedded, 40), 20);
    embedded = moved(Matrix::scale(2, 2, 2));
    EXPECT_EQ(placeOf(embedded, 10), (Vector{1, 0, 0}));
    EXPECT_EQ(placeOf(embedded, 11), (Vector{220, 400, 0}));
    EXPECT_EQ(realOf(embedded, 40), 40);
    EXPECT_EQ(realOf(embedded, 44), 15);
    EXPECT_EQ(integerOf(embedded, 71), 2);
    EXPECT_EQ(realOf(embedded, 1041), 10);
    embedded = moved(Matrix::mirror({0, 0, 0}, {1, 0, 0})); // what is written still runs to the right
    EXPECT_EQ(placeOf(embedded, 10), (Vector{1, 0, 0}));
    EXPECT_EQ(placeOf(embedded, 11), (Vector{-220, 400, 0}));
    EXPECT_EQ(placeOf(database.groups(paragraph), 10), (Vector{-220, 400, 0}));
    EXPECT_EQ(realOf(database.groups(paragraph), 40), 5);
}

TEST_F(Transform, AMirroredTextBetweenTwoPlacesStaysReadable)
{
    for (const std::int64_t horizontal : {3, 5}) {
        const GroupList groups = {{0, u"TEXT"}, {8, u"0"}, {10, Point{5, 1, 0}}, {11, Point{9, 1, 0}},
                                  {40, 2.0},    {50, 0.0}, {1, u"text"},         {72, horizontal}};
        const auto mirrored = [&](const Vector &normal) {
            const RecordId text = addEntity(m_drawing, groups);
            transformEntity(m_drawing, text, {Matrix::mirror({0, 0, 0}, normal), false});
            return m_drawing.database().groups(text);
        };
        const GroupList across = mirrored({1, 0, 0}), down = mirrored({0, 1, 0});
        EXPECT_EQ(placeOf(across, 10), (Vector{-9, 1, 0})); // its left end is where the right one was
        EXPECT_EQ(placeOf(across, 11), (Vector{-5, 1, 0}));
        EXPECT_EQ(realOf(across, 50), 0);
        EXPECT_EQ(placeOf(down, 10), (Vector{5, -1, 0}));
        EXPECT_EQ(placeOf(down, 11), (Vector{9, -1, 0}));
        for (const GroupList &text : {across, down}) {
            EXPECT_EQ(integerOf(text, 72), horizontal);
            EXPECT_EQ(integerOf(text, 73), 0); // such a text has no other
        }
    }
}

TEST_F(Transform, AMirroredParagraphStaysReadable)
{
    const auto mirrored = [this](const Group &direction, const Vector &normal) {
        const RecordId text = addEntity(m_drawing, {{0, u"MTEXT"},
                                                    {100, u"AcDbEntity"},
                                                    {8, u"0"},
                                                    {100, u"AcDbMText"},
                                                    {10, Point{5, 1, 0}},
                                                    {40, 2.0},
                                                    {71, std::int64_t{1}}, // top left
                                                    {1, u"text"},
                                                    direction});
        transformEntity(m_drawing, text, {Matrix::mirror({0, 0, 0}, normal), false});
        return m_drawing.database().groups(text);
    };
    const Group direction{11, Point{1, 0, 0}}, rotation{50, 0.0};
    const GroupList across = mirrored(direction, {1, 0, 0}), down = mirrored(direction, {0, 1, 0});
    EXPECT_EQ(placeOf(across, 11), (Vector{1, 0, 0}));
    EXPECT_EQ(integerOf(across, 71), 3); // top right
    EXPECT_EQ(placeOf(down, 11), (Vector{1, 0, 0}));
    EXPECT_EQ(integerOf(down, 71), 7); // bottom left
    EXPECT_EQ(realOf(mirrored(rotation, {1, 0, 0}), 50), 0);
    EXPECT_EQ(realOf(mirrored(rotation, {0, 1, 0}), 50), 0);
    EXPECT_EQ(integerOf(mirrored(rotation, {0, 1, 0}), 71), 7);
}

TEST_F(Transform, TheColumnsAndRowsOfAnInsertKeepTheirWayWhenItsScalesAreNegative)
{
    const RecordId insert = addEntity(m_drawing, {{0, u"INSERT"},
                                                  {8, u"0"},
                                                  {2, u"Part"},
                                                  {10, Point{1, 2, 0}},
                                                  {41, -2.0},
                                                  {42, -3.0},
                                                  {70, std::int64_t{2}},
                                                  {71, std::int64_t{2}},
                                                  {44, 10.0},
                                                  {45, 20.0}});
    const Matrix matrix = Matrix::scale(2, 3, 4);
    std::vector<Vector> expected = placesOf(m_drawing, insert);
    for (Vector &place : expected)
        place = matrix.place(place);
    const std::vector<GroupList> made = stretched(m_drawing, insert, matrix);
    ASSERT_EQ(made.size(), 1U);
    const std::vector<Vector> found = placesOf(m_drawing, addEntity(m_drawing, made.front()));
    EXPECT_EQ(found.size(), expected.size());
    // Lines alone: a stretched arc begins its pieces elsewhere.
    EXPECT_LT(std::abs(farthest({expected[0]}, found)), 1e-9);
    EXPECT_LT(std::abs(farthest({expected[1]}, found)), 1e-9);
    const std::size_t perInsert = expected.size() / 4;
    for (std::size_t place = 0; place < expected.size(); place += perInsert)
        EXPECT_LT(farthest({expected[place]}, found), 1e-9);
}

TEST_F(Transform, StretchedLettersStandWhereTheMatrixTakesThem)
{
    const GroupList start{{0, u"TEXT"}, {8, u"0"}, {10, Point{3, 1, 2}}, {40, 2.0}, {1, u"text"}};
    const GroupList variants[] = {
        {},
        {{50, 30.0}, {41, 0.7}, {51, 15.0}},
        {{50, 200.0}, {51, 340.0}, {71, std::int64_t{2}}, {210, Point{0, 0.6, 0.8}}},
        {{72, std::int64_t{1}}, {11, Point{7, 3, 2}}, {73, std::int64_t{2}}, {210, Point{0, 0, -1}}},
        {{72, std::int64_t{5}}, {11, Point{7, 3, 2}}, {50, 26.0}},
    };
    std::uniform_real_distribution<double> number(-3, 3);
    for (int round = 0; round < 50; ++round)
        for (const GroupList &variant : variants) {
            const Matrix matrix{{number(m_random), number(m_random), number(m_random)},
                                {number(m_random), number(m_random), number(m_random)},
                                {number(m_random), number(m_random), number(m_random)},
                                {number(m_random), number(m_random), number(m_random)}};
            GroupList groups = start;
            groups.insert(groups.end(), variant.begin(), variant.end());
            const RecordId text = addEntity(m_drawing, groups);
            const std::vector<GroupList> made = stretched(m_drawing, text, matrix);
            ASSERT_EQ(made.size(), 1U);
            const std::vector<Vector> old = placesOf(m_drawing, text);
            const std::vector<Vector> found = placesOf(m_drawing, addEntity(m_drawing, made.front()));
            ASSERT_EQ(found.size(), old.size());
            for (std::size_t place = 0; place < old.size(); ++place)
                EXPECT_LT(length(found[place] - matrix.place(old[place])), 1e-6) << &variant - variants;
        }
}

// The corners of a paragraph's letters.
class Ink final : public geometry::ShapeSink
{
public:
    explicit Ink(const Drawing &drawing) : m_drawing(drawing) {}
    std::vector<Vector> corners;

    void paragraphs(const geometry::Paragraphs &paragraphs, const geometry::Origin &) override
    {
        if (const auto ink =
                geometry::inkCorners(paragraphs, geometry::textStyleOf(m_drawing.database(), paragraphs.style)))
            corners.assign(ink->begin(), ink->end());
    }

private:
    const Drawing &m_drawing;
};

std::vector<Vector> inkOf(const Drawing &drawing, RecordId paragraphs)
{
    Ink ink(drawing);
    geometry::shapesOf(drawing, paragraphs, ink);
    return ink.corners;
}

TEST_F(Transform, AStretchedParagraphHasItsWidthFromCodes)
{
    const Matrix matrix = Matrix::translation({1, 2, 3}) * Matrix::scale(3, 2, 1);
    for (const char16_t *string : {u"plain", u"\\W0.5;half", u"one \\\\W2; two", u"{\\W2;wide} thin"}) {
        const RecordId text = addEntity(m_drawing, {{0, u"MTEXT"},
                                                    {100, u"AcDbEntity"},
                                                    {8, u"0"},
                                                    {100, u"AcDbMText"},
                                                    {10, Point{4, 5, 0}},
                                                    {40, 2.0},
                                                    {41, 100.0},
                                                    {71, std::int64_t{5}},
                                                    {1, string}});
        const std::vector<GroupList> made = stretched(m_drawing, text, matrix);
        ASSERT_EQ(made.size(), 1U);
        EXPECT_DOUBLE_EQ(*findValue<double>(made.front(), 40), 4);
        EXPECT_DOUBLE_EQ(*findValue<double>(made.front(), 41), 300);
        const std::vector<Vector> old = inkOf(m_drawing, text),
                                  found = inkOf(m_drawing, addEntity(m_drawing, made.front()));
        ASSERT_EQ(old.size(), 4U);
        ASSERT_EQ(found.size(), 4U);
        for (std::size_t corner = 0; corner < old.size(); ++corner)
            EXPECT_LT(length(found[corner] - matrix.place(old[corner])), 1e-9);
    }
}

// Boundaries of all kinds of edges, an arc that runs clockwise among them, and a pattern of dashes.
const GroupList hatch{{0, u"HATCH"},
                      {100, u"AcDbEntity"},
                      {8, u"0"},
                      {100, u"AcDbHatch"},
                      {10, Point{0, 0, 2}},
                      {210, Point{0, 0, 1}},
                      {2, u"OWN"},
                      {70, std::int64_t{0}},
                      {71, std::int64_t{0}},
                      {91, std::int64_t{3}},
                      {92, std::int64_t{3}}, // a polyline with an arc
                      {72, std::int64_t{1}},
                      {73, std::int64_t{1}},
                      {93, std::int64_t{3}},
                      {10, Point{0, 0, 0, 2}},
                      {42, 0.5},
                      {10, Point{20, 0, 0, 2}},
                      {42, 0.0},
                      {10, Point{20, 20, 0, 2}},
                      {42, -0.25},
                      {97, std::int64_t{0}},
                      {92, std::int64_t{2}}, // one without
                      {72, std::int64_t{0}},
                      {73, std::int64_t{1}},
                      {93, std::int64_t{3}},
                      {10, Point{6, 4, 0, 2}},
                      {10, Point{9, 4, 0, 2}},
                      {10, Point{9, 7, 0, 2}},
                      {97, std::int64_t{0}},
                      {92, std::int64_t{0}}, // a line and arcs of both kinds
                      {93, std::int64_t{3}},
                      {72, std::int64_t{1}},
                      {10, Point{12, 5, 0, 2}},
                      {11, Point{16, 5, 0, 2}},
                      {72, std::int64_t{2}},
                      {10, Point{15, 5, 0, 2}},
                      {40, 1.0},
                      {50, 0.0},
                      {51, 90.0},
                      {73, std::int64_t{1}},
                      {72, std::int64_t{3}},
                      {10, Point{15, 5, 0, 2}},
                      {11, Point{-3, 0, 0, 2}},
                      {40, 1.0 / 3},
                      {50, 0.0},
                      {51, 90.0},
                      {73, std::int64_t{0}},
                      {97, std::int64_t{0}},
                      {75, std::int64_t{0}},
                      {76, std::int64_t{0}},
                      {52, 45.0},
                      {41, 1.0},
                      {77, std::int64_t{0}},
                      {78, std::int64_t{1}},
                      {53, 45.0},
                      {43, 1.0},
                      {44, 2.0},
                      {45, -0.5},
                      {46, 0.5},
                      {79, std::int64_t{2}},
                      {49, 0.5},
                      {49, -0.25},
                      {98, std::int64_t{1}},
                      {10, Point{1, 1, 0, 2}}};

class Areas final : public geometry::ShapeSink
{
public:
    std::vector<geometry::Area> areas;
    void area(const geometry::Area &area, const geometry::Origin &) override { areas.push_back(area); }
};

geometry::Area areaOf(const Drawing &drawing, RecordId hatched)
{
    Areas found;
    geometry::shapesOf(drawing, hatched, found);
    return found.areas.at(0);
}

TEST_F(Transform, AStretchedHatchHasItsBoundariesAndPatternStretched)
{
    std::uniform_real_distribution<double> number(0.5, 3);
    for (int round = 0; round < 50; ++round) {
        SCOPED_TRACE(round);
        const double side = round % 2 == 0 ? 1 : -1; // a mirror or not
        const Matrix matrix = Matrix::rotation(number(m_random)) *
                              Matrix::scale(side * number(m_random), number(m_random), number(m_random)) *
                              Matrix::rotation(number(m_random)) * Matrix::translation({number(m_random), 2, 3});
        const RecordId original = addEntity(m_drawing, hatch);
        const std::vector<GroupList> made = stretched(m_drawing, original, matrix);
        ASSERT_EQ(made.size(), 1U);
        const RecordId copy = addEntity(m_drawing, made.front());
        std::vector<Vector> expected = placesOf(m_drawing, original);
        for (Vector &place : expected)
            place = matrix.place(place);
        const std::vector<Vector> found = placesOf(m_drawing, copy);
        EXPECT_EQ(found.size(), expected.size());
        EXPECT_LT(farthest(found, expected), 1e-7);
        EXPECT_LT(farthest(expected, found), 1e-7);
        const geometry::PatternLine line = areaOf(m_drawing, original).pattern.at(0),
                                    there = areaOf(m_drawing, copy).pattern.at(0);
        EXPECT_LT(length(there.base - matrix.place(line.base)), 1e-9);
        EXPECT_LT(length(there.offset - matrix.direction(line.offset)), 1e-9);
        for (std::size_t dash = 0; dash < line.dashes.size(); ++dash)
            EXPECT_LT(
                length(there.direction * there.dashes.at(dash) - matrix.direction(line.direction * line.dashes[dash])),
                1e-9);
    }
}

TEST_F(Transform, AWholeCircleAroundAHatchBecomesAWholeEllipse)
{
    for (const double start : {0.0, 30.0}) {
        const GroupList circle{{0, u"HATCH"},         {100, u"AcDbEntity"},    {8, u"0"},
                               {100, u"AcDbHatch"},   {10, Point{0, 0, 0}},    {210, Point{0, 0, 1}},
                               {2, u"SOLID"},         {70, std::int64_t{1}},   {71, std::int64_t{0}},
                               {91, std::int64_t{1}}, {92, std::int64_t{1}},   {93, std::int64_t{1}},
                               {72, std::int64_t{2}}, {10, Point{2, 3, 0, 2}}, {40, 3.0},
                               {50, start},           {51, start + 360},       {73, std::int64_t{1}},
                               {97, std::int64_t{0}}, {75, std::int64_t{0}},   {76, std::int64_t{1}},
                               {98, std::int64_t{0}}};
        const std::vector<GroupList> made = stretched(m_drawing, addEntity(m_drawing, circle), Matrix::scale(2, 1, 1));
        ASSERT_EQ(made.size(), 1U);
        EXPECT_EQ(*findValue<std::int64_t>(made.front(), 72), 3);
        EXPECT_DOUBLE_EQ(std::abs(findValue<Point>(made.front(), 11)->x), 6);
        EXPECT_DOUBLE_EQ(*findValue<double>(made.front(), 40), 0.5);
        EXPECT_EQ(*findValue<double>(made.front(), 50), 0);
        EXPECT_EQ(*findValue<double>(made.front(), 51), 360);
    }
}

// Of more than a turn the rest counts.
TEST_F(Transform, AnArcBeyondATurnStaysAnArc)
{
    const GroupList sector{{0, u"HATCH"},
                           {100, u"AcDbEntity"},
                           {8, u"0"},
                           {100, u"AcDbHatch"},
                           {10, Point{0, 0, 0}},
                           {210, Point{0, 0, 1}},
                           {2, u"SOLID"},
                           {70, std::int64_t{1}},
                           {71, std::int64_t{0}},
                           {91, std::int64_t{1}},
                           {92, std::int64_t{1}},
                           {93, std::int64_t{2}},
                           {72, std::int64_t{2}},
                           {10, Point{2, 3, 0, 2}},
                           {40, 3.0},
                           {50, 0.0},
                           {51, 450.0},
                           {73, std::int64_t{1}},
                           {72, std::int64_t{1}},
                           {10, Point{2, 6, 0, 2}},
                           {11, Point{5, 3, 0, 2}},
                           {97, std::int64_t{0}},
                           {75, std::int64_t{0}},
                           {76, std::int64_t{1}},
                           {98, std::int64_t{0}}};
    const Matrix matrix = Matrix::scale(2, 1, 1);
    const RecordId original = addEntity(m_drawing, sector);
    std::vector<Vector> expected = placesOf(m_drawing, original);
    for (Vector &place : expected)
        place = matrix.place(place);
    const std::vector<Vector> found =
        placesOf(m_drawing, addEntity(m_drawing, stretched(m_drawing, original, matrix).at(0)));
    EXPECT_LT(farthest(found, expected), 1e-9);
    EXPECT_LT(farthest(expected, found), 1e-9);
}

TEST_F(Transform, TheMeasurementOfADimensionGrowsWithIt)
{
    Database &database = m_drawing.database();
    const auto scaled = [&](std::int64_t type) {
        const RecordId dimension =
            database.add(RecordKind::Entity, {{0, u"DIMENSION"}, {8, u"0"}, {10, Point{}}, {70, type}, {42, 1.5}},
                         database.endOf(ensureEntities(database)));
        transformEntity(m_drawing, dimension, {Matrix::scale(2, 2, 2), false});
        return realOf(database.groups(dimension), 42);
    };
    EXPECT_EQ(scaled(32), 3);
    EXPECT_EQ(scaled(33), 3);
    EXPECT_EQ(scaled(4), 3);
    EXPECT_EQ(scaled(2 + 32), 1.5); // an angle
    EXPECT_EQ(scaled(5 + 128), 1.5);
}

} // namespace
} // namespace drawing
