// What happens to the groups of an entity that needs no drawing around it.

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/Transform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>

namespace drawing {
namespace {

using geometry::Matrix;
using geometry::Vector;

// A way to the right and then up, whose elements stand 0.5 to its left and right.
const GroupList multiline = {{0, u"MLINE"},
                             {100, u"AcDbEntity"},
                             {8, u"0"},
                             {100, u"AcDbMline"},
                             {2, u"STANDARD"},
                             {40, 1.0},
                             {10, Point{0, 0, 0}},
                             {11, Point{0, 0, 0}},
                             {12, Point{1, 0, 0}},
                             {13, Point{0, 1, 0}},
                             {74, std::int64_t{2}},
                             {41, 0.5},
                             {41, 0.0},
                             {75, std::int64_t{1}},
                             {42, 0.25},
                             {74, std::int64_t{2}},
                             {41, -0.5},
                             {41, 0.0},
                             {75, std::int64_t{0}},
                             {11, Point{4, 0, 0}},
                             {12, Point{0, 1, 0}},
                             {13, Point{-1, 1, 0}}};

TEST(TransformedGroups, TheElementsOfAMultilineGrowWithIt)
{
    const GroupList scaled = *transformed(multiline, {Matrix::scale(3, 3, 3), false});
    EXPECT_EQ(realOf(scaled, 40), 3);
    EXPECT_EQ(realOf(scaled, 41), 1.5);
    EXPECT_EQ(realOf(scaled, 42), 0.75);
    EXPECT_EQ(placeOf(scaled, 13), (Vector{0, 1, 0}));
    EXPECT_FALSE(hasGroup(scaled, 210));
}

TEST(TransformedGroups, AMirroredMultilineIsTheSameOneSeenFromTheOtherSide)
{
    const GroupList mirrored = *transformed(multiline, {Matrix::mirror({0, 0, 0}, {0, 1, 0}), false});
    EXPECT_EQ(placeOf(mirrored, 12), (Vector{1, 0, 0}));
    EXPECT_EQ(placeOf(mirrored, 13), (Vector{0, -1, 0}));
    EXPECT_EQ(placeOf(mirrored, 210), (Vector{0, 0, -1}));
    EXPECT_EQ(std::ranges::find(mirrored, 210, &Group::code) - std::ranges::find(mirrored, 10, &Group::code), 1);
    EXPECT_EQ(realOf(mirrored, 40), 1);
    EXPECT_EQ(realOf(mirrored, 41), 0.5);
    const GroupList twice = *transformed(mirrored, {Matrix::mirror({0, 0, 0}, {1, 0, 0}), false});
    EXPECT_EQ(placeOf(twice, 210), (Vector{0, 0, 1}));
}

TEST(TransformedGroups, TheCornersOfAMeshGoAlongAndItsCreasesStay)
{
    const GroupList mesh = {{0, u"MESH"},           {100, u"AcDbEntity"},  {8, u"0"},
                            {100, u"AcDbSubDMesh"}, {92, std::int64_t{2}}, {10, Point{1, 0, 0}},
                            {10, Point{0, 2, 3}},   {95, std::int64_t{1}}, {140, 0.75}};
    const GroupList moved = *transformed(mesh, {Matrix::translation({10, 0, 0}) * Matrix::scale(2, 2, 2), false});
    EXPECT_EQ(std::get<Point>(moved[5].value), (Point{12, 0, 0}));
    EXPECT_EQ(std::get<Point>(moved[6].value), (Point{10, 4, 6}));
    EXPECT_EQ(realOf(moved, 140), 0.75);
}

TEST(TransformedGroups, AHelixIsAroundItsAxisAndAMirrorTurnsItRound)
{
    const GroupList helix = {{0, u"HELIX"},
                             {100, u"AcDbEntity"},
                             {8, u"0"},
                             {100, u"AcDbSpline"},
                             {40, 0.5}, // a knot
                             {10, Point{2, 0, 0}},
                             {100, u"AcDbHelix"},
                             {90, std::int64_t{29}},
                             {10, Point{1, 0, 0}},
                             {11, Point{2, 0, 0}},
                             {12, Point{0, 0, 1}},
                             {40, 1.0},
                             {41, 3.0},
                             {42, 1.5},
                             {290, std::int64_t{1}},
                             {280, std::int64_t{1}}};
    const auto behind = [](GroupList groups) {
        groups.erase(groups.begin(), std::ranges::find(groups, Group{100, u"AcDbHelix"}));
        return groups;
    };
    const Matrix upsideDown = Matrix::translation({10, 0, 0}) * Matrix::rotation({1, 0, 0}, std::numbers::pi);
    const GroupList moved = *transformed(helix, {upsideDown * Matrix::scale(2, 2, 2), false});
    EXPECT_EQ(placeOf(moved, 10), (Vector{14, 0, 0}));
    EXPECT_EQ(realOf(moved, 40), 0.5);
    EXPECT_EQ(placeOf(behind(moved), 10), (Vector{12, 0, 0}));
    EXPECT_EQ(placeOf(behind(moved), 11), (Vector{14, 0, 0}));
    EXPECT_LT(length(placeOf(behind(moved), 12) - Vector{0, 0, -1}), 1e-12);
    EXPECT_EQ(realOf(behind(moved), 40), 2);
    EXPECT_EQ(realOf(behind(moved), 41), 3);
    EXPECT_EQ(realOf(behind(moved), 42), 3);
    EXPECT_EQ(integerOf(moved, 290), 1);
    const GroupList mirrored = *transformed(helix, {Matrix::mirror({0, 0, 0}, {1, 0, 0}), false});
    EXPECT_EQ(placeOf(behind(mirrored), 11), (Vector{-2, 0, 0}));
    EXPECT_EQ(placeOf(behind(mirrored), 12), (Vector{0, 0, 1}));
    EXPECT_EQ(integerOf(mirrored, 290), 0);
}

TEST(TransformedGroups, WhatHasNoRotationIsTurnedNevertheless)
{
    const Matrix quarter = Matrix::rotation(geometry::radians(90));
    for (const char16_t *type : {u"TEXT", u"ATTRIB", u"INSERT", u"MTEXT"}) {
        const GroupList groups = {{0, type}, {8, u"0"}, {10, Point{1, 0, 0}}};
        EXPECT_DOUBLE_EQ(realOf(*transformed(groups, {quarter, false}), 50), 90);
        EXPECT_FALSE(hasGroup(*transformed(groups, {Matrix::translation({1, 0, 0}), false}), 50));
    }
    const GroupList paragraph = {{0, u"MTEXT"}, {8, u"0"}, {10, Point{1, 0, 0}}, {11, Point{1, 0, 0}}};
    EXPECT_FALSE(hasGroup(*transformed(paragraph, {quarter, false}), 50)); // it has a direction
    const GroupList dimension = {{0, u"DIMENSION"}, {70, std::int64_t{32}}, {14, Point{1, 0, 0}}, {100, u"later"}};
    EXPECT_DOUBLE_EQ(realOf(*transformed(dimension, {quarter, false}), 50), 90);
    const GroupList radius = {{0, u"DIMENSION"}, {70, std::int64_t{36}}, {14, Point{1, 0, 0}}};
    EXPECT_FALSE(hasGroup(*transformed(radius, {quarter, false}), 50));
}

// The text's angle is one from the dimension line, and the horizontal is that of who made the dimension.
TEST(TransformedGroups, TheTextOfADimensionTurnsWithItsLine)
{
    const GroupList dimension = {
        {0, u"DIMENSION"}, {70, std::int64_t{32}}, {14, Point{1, 0, 0}}, {50, 10.0}, {51, 20.0}, {53, 30.0}};
    const GroupList turned = *transformed(dimension, {Matrix::rotation(geometry::radians(90)), false});
    EXPECT_DOUBLE_EQ(realOf(turned, 50), 100);
    EXPECT_DOUBLE_EQ(realOf(turned, 51), 20);
    EXPECT_DOUBLE_EQ(realOf(turned, 53), 30);
    const GroupList mirrored = *transformed(dimension, {Matrix::mirror({0, 0, 0}, {1, 0, 0}), false});
    EXPECT_DOUBLE_EQ(realOf(mirrored, 53), -30);
}

TEST(TransformedGroups, TheLinesOfAnAttributeGoAlong)
{
    for (const char16_t *type : {u"ATTRIB", u"ATTDEF"}) {
        const GroupList attribute = {{0, type},
                                     {8, u"0"},
                                     {10, Point{5, 1, 0}},
                                     {40, 2.0},
                                     {1, u"first"},
                                     {101, u"Embedded Object"},
                                     {10, Point{5, 3, 0}},
                                     {40, 2.0},
                                     {41, 20.0},
                                     {46, 8.0},
                                     {71, std::int64_t{1}},
                                     {1, u"first\\Psecond"},
                                     {11, Point{1, 0, 0}},
                                     {42, 12.0},
                                     {43, 5.0},
                                     {44, 1.5},
                                     {1001, u"ACAD"},
                                     {1041, 5.0}};
        const auto linesOf = [&](const Matrix &matrix) {
            GroupList groups = *transformed(attribute, {matrix, false});
            groups.erase(groups.begin(), std::ranges::find(groups, 101, &Group::code));
            return groups;
        };
        const GroupList moved =
            linesOf(Matrix::translation({10, 0, 0}) * Matrix::rotation(geometry::radians(90)) * Matrix::scale(2, 2, 2));
        EXPECT_EQ(moved.front(), (Group{101, u"Embedded Object"}));
        EXPECT_LT(length(placeOf(moved, 10) - Vector{4, 10, 0}), 1e-12);
        EXPECT_LT(length(placeOf(moved, 11) - Vector{0, 1, 0}), 1e-12);
        EXPECT_EQ(realOf(moved, 40), 4);
        EXPECT_EQ(realOf(moved, 41), 40);
        EXPECT_EQ(realOf(moved, 46), 16);
        EXPECT_EQ(realOf(moved, 42), 24);
        EXPECT_EQ(realOf(moved, 43), 10);
        EXPECT_EQ(realOf(moved, 44), 1.5);  // the distance of lines is a factor
        EXPECT_EQ(realOf(moved, 1041), 10); // once
        const GroupList mirrored = linesOf(Matrix::mirror({0, 0, 0}, {1, 0, 0}));
        EXPECT_EQ(placeOf(mirrored, 10), (Vector{-5, 3, 0}));
        EXPECT_EQ(placeOf(mirrored, 11), (Vector{1, 0, 0}));
        EXPECT_EQ(integerOf(mirrored, 71), 3); // top right
    }
}

} // namespace
} // namespace drawing
