#include "host/drawing/edit/MultileaderTransform.h"

#include "host/drawing/edit/GroupEditing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace drawing {
namespace {

using geometry::Matrix;
using geometry::Vector;

constexpr double Quarter = std::numbers::pi / 2;

// One leader from (0 0) with a break, whose landing leads to a text at (10 5).
GroupList withText()
{
    return {{0, u"MULTILEADER"},
            {100, u"AcDbEntity"},
            {8, u"0"},
            {100, u"AcDbMLeader"},
            {270, std::int64_t{2}},
            {300, u"CONTEXT_DATA{"},
            {40, 1.0},
            {10, Point{9, 4, 0}},
            {41, 2.5},
            {140, 4.0},
            {145, 2.0},
            {174, std::int64_t{1}},
            {175, std::int64_t{1}},
            {176, std::int64_t{0}},
            {290, std::int64_t{1}},
            {304, u"LEADER_LINE{"}, // what is written
            {11, Point{0, 0, 1}},
            {12, Point{10, 5, 0}},
            {13, Point{1, 0, 0}},
            {42, 0.0},
            {43, 30.0},
            {44, 7.0},
            {45, 1.5},
            {171, std::int64_t{1}},
            {141, 1.25},
            {142, 8.0},
            {143, 0.5},
            {144, 6.0},
            {296, std::int64_t{0}},
            {110, Point{1, 1, 0}},
            {111, Point{1, 0, 0}},
            {112, Point{0, 1, 0}},
            {297, std::int64_t{0}},
            {302, u"LEADER{"},
            {290, std::int64_t{1}},
            {291, std::int64_t{1}},
            {10, Point{7, 4, 0}},
            {11, Point{1, 0, 0}},
            {12, Point{7.5, 4, 0}},
            {13, Point{8, 4, 0}},
            {90, std::int64_t{0}},
            {40, 2.0},
            {304, u"LEADER_LINE{"},
            {10, Point{0, 0, 0}},
            {10, Point{3, 4, 0}},
            {90, std::int64_t{0}},
            {11, Point{1, 1, 0}},
            {12, Point{2, 2, 0}},
            {91, std::int64_t{0}},
            {40, 3.0},
            {305, u"}"},
            {271, std::int64_t{0}},
            {303, u"}"},
            {272, std::int64_t{9}},
            {301, u"}"},
            {41, 2.0},
            {42, 4.0},
            {10, Point{1, 1, 1}},
            {43, 0.0},
            {175, std::int64_t{0}},
            {179, std::int64_t{1}},
            {45, 1.0},
            {1001, u"ACAD"},
            {1011, Point{1, 2, 3}}};
}

GroupList withBlock()
{
    GroupList groups = {{0, u"MULTILEADER"},
                        {8, u"0"},
                        {300, u"CONTEXT_DATA{"},
                        {40, 1.0},
                        {10, Point{9, 4, 0}},
                        {290, std::int64_t{0}},
                        {296, std::int64_t{1}},
                        {14, Point{0, 0, 1}},
                        {15, Point{10, 5, 0}},
                        {16, Point{2, 3, 1}},
                        {46, Quarter}};
    for (const double number : {0, -3, 0, 10, 2, 0, 0, 5, 0, 0, 1, 0, 0, 0, 0, 1})
        groups.push_back({47, number});
    groups.insert(groups.end(), {{301, u"}"}, {10, Point{2, 3, 1}}, {43, Quarter}, {45, 1.0}});
    return groups;
}

// The groups with the code, in their order.
GroupList all(const GroupList &groups, int code)
{
    GroupList found;
    for (const Group &group : groups)
        if (group.code == code)
            found.push_back(group);
    return found;
}

void expectPlaces(const GroupList &groups, int code, const std::vector<Vector> &wanted)
{
    const GroupList found = all(groups, code);
    ASSERT_EQ(found.size(), wanted.size()) << code;
    for (std::size_t at = 0; at < wanted.size(); ++at)
        EXPECT_LT(length(geometry::vectorOf(std::get<Point>(found[at].value)) - wanted[at]), 1e-12)
            << code << " number " << at;
}

void expectNumbers(const GroupList &groups, int code, const std::vector<double> &wanted)
{
    const GroupList found = all(groups, code);
    ASSERT_EQ(found.size(), wanted.size()) << code;
    for (std::size_t at = 0; at < wanted.size(); ++at)
        EXPECT_NEAR(std::get<double>(found[at].value), wanted[at], 1e-12) << code << " number " << at;
}

TEST(MultileaderTransform, AMoveTakesAllPlacesAlongAndNoDirections)
{
    const GroupList moved = transformedMultileader(withText(), {Matrix::translation({100, 10, 1}), false});
    // The context's, the leader's, its line's two; the scale of a block is none.
    expectPlaces(moved, 10, {{109, 14, 1}, {107, 14, 1}, {100, 10, 1}, {103, 14, 1}, {1, 1, 1}});
    expectPlaces(moved, 11, {{0, 0, 1}, {1, 0, 0}, {101, 11, 1}}); // the text's normal, the landing, a break
    expectPlaces(moved, 12, {{110, 15, 1}, {107.5, 14, 1}, {102, 12, 1}});
    expectPlaces(moved, 13, {{1, 0, 0}, {108, 14, 1}});
    expectPlaces(moved, 110, {{101, 11, 1}});
    expectPlaces(moved, 111, {{1, 0, 0}});
    expectPlaces(moved, 112, {{0, 1, 0}});
    expectPlaces(moved, 1011, {{101, 12, 4}});
    for (const int code : {40, 41, 42, 43, 44, 45, 140, 145, 297, 304})
        EXPECT_EQ(all(moved, code), all(withText(), code)) << code;
}

TEST(MultileaderTransform, SizesGrowWhereTheyAreAsDrawn)
{
    const GroupList scaled = transformedMultileader(withText(), {Matrix::scale(2, 2, 2), false});
    expectPlaces(scaled, 10, {{18, 8, 0}, {14, 8, 0}, {0, 0, 0}, {6, 8, 0}, {1, 1, 1}});
    expectPlaces(scaled, 13, {{1, 0, 0}, {16, 8, 0}});
    expectNumbers(scaled, 40, {2, 4, 6}); // the scale, the landing, the arrow of the line
    expectNumbers(scaled, 41, {5, 4});    // the height of the text, the landing again
    expectNumbers(scaled, 42, {0, 4});    // an angle, and the arrow before it is multiplied by the scale
    expectNumbers(scaled, 43, {60, 0});   // the width of the text, an angle
    expectNumbers(scaled, 44, {14});
    expectNumbers(scaled, 45, {1.5, 2}); // the distance of lines, which is a factor, and the scale
    expectNumbers(scaled, 140, {8});
    expectNumbers(scaled, 141, {1.25}); // a factor
    expectNumbers(scaled, 142, {16});
    expectNumbers(scaled, 143, {1});
    expectNumbers(scaled, 144, {12});
    expectNumbers(scaled, 145, {4});
}

TEST(MultileaderTransform, ARotationTurnsDirectionsAndAngles)
{
    const GroupList rotated = transformedMultileader(withText(), {Matrix::rotation(Quarter), false});
    expectPlaces(rotated, 11, {{0, 0, 1}, {0, 1, 0}, {-1, 1, 0}});
    expectPlaces(rotated, 12, {{-5, 10, 0}, {-4, 7.5, 0}, {-2, 2, 0}});
    expectPlaces(rotated, 13, {{0, 1, 0}, {-4, 8, 0}});
    expectPlaces(rotated, 111, {{0, 1, 0}});
    expectPlaces(rotated, 112, {{-1, 0, 0}});
    expectNumbers(rotated, 42, {Quarter, 4});
    EXPECT_EQ(all(rotated, 297), all(withText(), 297));
}

TEST(MultileaderTransform, AMirroredTextIsReadFromTheOtherEnd)
{
    const GroupList mirrored = transformedMultileader(withText(), {Matrix::mirror({0, 0, 0}, {1, 0, 0}), false});
    expectPlaces(mirrored, 11, {{0, 0, 1}, {-1, 0, 0}, {-1, 1, 0}}); // the landing runs the other way
    expectPlaces(mirrored, 12, {{-10, 5, 0}, {-7.5, 4, 0}, {-2, 2, 0}});
    expectPlaces(mirrored, 13, {{1, 0, 0}, {-8, 4, 0}});
    expectNumbers(mirrored, 42, {0, 4});
    EXPECT_EQ(integerOf(mirrored, 171), 3); // right
    EXPECT_EQ(integerOf(mirrored, 179), 3);
    EXPECT_EQ(integerOf(mirrored, 176), 2);
    EXPECT_EQ(std::get<std::int64_t>(all(mirrored, 175).back().value), 2);
    EXPECT_EQ(std::get<std::int64_t>(all(mirrored, 175).front().value), 1); // of the context: how leaders arrive
    EXPECT_EQ(integerOf(mirrored, 297), 1);
}

TEST(MultileaderTransform, ATextThatWouldStandOnItsHeadHangsOnItsBaseAsBefore)
{
    const GroupList mirrored = transformedMultileader(withText(), {Matrix::mirror({0, 0, 0}, {0, 1, 0}), false});
    expectPlaces(mirrored, 10, {{9, -4, 0}, {7, -4, 0}, {0, 0, 0}, {3, -4, 0}, {1, 1, 1}});
    expectPlaces(mirrored, 12, {{10, -3, 0}, {7.5, -4, 0}, {2, -2, 0}}); // 1 above the base
    expectPlaces(mirrored, 13, {{1, 0, 0}, {8, -4, 0}});
    expectNumbers(mirrored, 42, {0, 4});
    EXPECT_EQ(integerOf(mirrored, 171), 1);
}

TEST(MultileaderTransform, ABlockGoesWithItsMatrix)
{
    const Matrix matrix = Matrix::translation({100, 0, 0}) * Matrix::rotation(Quarter) * Matrix::scale(2, 2, 2);
    const GroupList moved = transformedMultileader(withBlock(), {matrix, false});
    expectPlaces(moved, 14, {{0, 0, 1}});
    expectPlaces(moved, 15, {{90, 20, 0}});
    expectPlaces(moved, 16, {{4, 6, 2}});
    expectPlaces(moved, 10, {{92, 18, 0}, {2, 3, 1}});
    expectNumbers(moved, 46, {2 * Quarter});
    expectNumbers(moved, 43, {2 * Quarter});
    expectNumbers(moved, 47, {-4, 0, 0, 90, 0, -6, 0, 20, 0, 0, 2, 0, 0, 0, 0, 1});
}

// As the matrix says: the block's x goes to (0 2) and then to (0 -2), its y to (-3 0), where it stays.
TEST(MultileaderTransform, AMirroredBlockHasANegativeScale)
{
    const GroupList mirrored = transformedMultileader(withBlock(), {Matrix::mirror({0, 0, 0}, {0, 1, 0}), false});
    expectPlaces(mirrored, 14, {{0, 0, 1}});
    expectPlaces(mirrored, 16, {{2, -3, 1}});
    expectPlaces(mirrored, 10, {{9, -4, 0}, {2, -3, 1}});
    expectNumbers(mirrored, 46, {3 * Quarter});
    expectNumbers(mirrored, 43, {3 * Quarter});
    expectNumbers(mirrored, 47, {0, -3, 0, 10, -2, 0, 0, -5, 0, 0, 1, 0, 0, 0, 0, 1});
}

} // namespace
} // namespace drawing
