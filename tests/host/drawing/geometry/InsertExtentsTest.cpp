#include "tests/host/drawing/geometry/SampleEntities.h"

namespace geometry {
namespace {

using InsertExtents = GeometryTest;

const drawing::GroupList OneToTwo = {place(10, 1, 1), place(11, 2, 2)};

TEST_F(InsertExtents, BasePointScaleAndRotation)
{
    addIn(addBlock(u"B", {1, 1, 0}), u"LINE", OneToTwo);
    const auto id = addInsert(u"b", {place(10, 10, 20), {41, 2.0}, {42, 3.0}, {50, 90.0}});
    expectBox(extents(id), {7, 20, 0}, {10, 22, 0});
}

TEST_F(InsertExtents, ArraysCountToTheirLastCopy)
{
    addIn(addBlock(u"B"), u"LINE", OneToTwo);
    const auto id = addInsert(u"B", {place(10, 0, 0), integer(70, 30000), integer(71, 30000), {44, 1.0}, {45, -2.0}});
    expectBox(extents(id), {1, 1 - 2 * 29999.0, 0}, {2 + 29999.0, 2, 0});
}

TEST_F(InsertExtents, AttributesCountWhereTheyStandUnlessInvisible)
{
    addBlock(u"B");
    const Groups text = {place(10, 100, 100), {40, 2.0}, {1, u"H"}, {2, u"TAG"}};
    const auto shown = addInsert(u"B", {integer(66, 1), place(10, 5, 5), {41, 3.0}});
    Groups attribute = text;
    attribute.push_back(integer(70, 0));
    const auto part = add(u"ATTRIB", attribute);
    add(u"SEQEND", {});
    EXPECT_EQ(extents(shown), extents(part));
    EXPECT_NEAR(extents(shown).maximum.y, 102, 1e-9);

    const auto hidden = addInsert(u"B", {integer(66, 1), place(10, 5, 5)});
    attribute.back() = integer(70, 1);
    add(u"ATTRIB", attribute);
    add(u"SEQEND", {});
    EXPECT_FALSE(hasExtents(hidden));
}

TEST_F(InsertExtents, AttributeDefinitionsInABlockCountOnlyWhenConstant)
{
    const auto block = addBlock(u"B");
    addIn(block, u"ATTDEF", {place(10, 0, 0), {40, 1.0}, {1, u"x"}, {2, u"TAG"}, integer(70, 0)});
    const auto id = addInsert(u"B");
    EXPECT_FALSE(hasExtents(id));
    addIn(block, u"ATTDEF", {place(10, 0, 0), {40, 1.0}, {1, u"x"}, {2, u"TAG"}, integer(70, 2)});
    EXPECT_TRUE(hasExtents(id));
}

TEST_F(InsertExtents, BlocksInThemselvesAreLeftOut)
{
    const auto first = addBlock(u"A"), second = addBlock(u"B");
    addIn(first, u"LINE", OneToTwo);
    addIn(first, u"INSERT", {{2, u"B"}, place(10, 5, 0)});
    addIn(second, u"INSERT", {{2, u"A"}, place(10, 100, 0)});
    addIn(second, u"POINT", {place(10, 0, 7)});
    expectBox(extents(addInsert(u"A")), {1, 1, 0}, {5, 7, 0});
}

TEST_F(InsertExtents, BlocksThatMultiplyWithoutEndHaveNone)
{
    constexpr int Depth = 40; // 2 to the 40th points
    for (int i = 0; i < Depth; ++i) {
        const std::u16string name = u"B" + drawing::widened(std::to_string(i)),
                             next = u"B" + drawing::widened(std::to_string(i + 1));
        const auto block = addBlock(name);
        addIn(block, u"INSERT", {{2, next}, place(10, 1, 0)});
        addIn(block, u"INSERT", {{2, next}, place(10, 0, 1)});
    }
    addIn(addBlock(u"B40"), u"POINT", {place(10, 0, 0)});
    EXPECT_FALSE(hasExtents(addInsert(u"B0")));
    EXPECT_TRUE(hasExtents(addInsert(u"B30")));
}

TEST_F(InsertExtents, BlocksNestedThousandsDeepHaveNone)
{
    constexpr int Depth = 5000;
    for (int i = 0; i < Depth; ++i)
        addIn(addBlock(u"B" + drawing::widened(std::to_string(i))), u"INSERT",
              {{2, u"B" + drawing::widened(std::to_string(i + 1))}, place(10, 1, 0)});
    addIn(addBlock(u"B5000"), u"POINT", {place(10, 0, 0)});
    EXPECT_FALSE(hasExtents(addInsert(u"B0")));
    expectBox(extents(addInsert(u"B4900")), {100, 0, 0}, {100, 0, 0});
}

TEST_F(InsertExtents, DimensionsAndTablesCountByTheirBlock)
{
    addIn(addBlock(u"*D1"), u"LINE", OneToTwo);
    expectBox(extents(add(u"DIMENSION", {{2, u"*D1"}, place(10, 50, 50)})), {1, 1, 0}, {2, 2, 0});
    expectBox(extents(add(u"DIMENSION", {{2, u"*D1"}, place(10, 50, 50), place(12, 3, 0)})), {4, 1, 0}, {5, 2, 0});
    const Groups table = {{100, u"AcDbBlockReference"},
                          {2, u"*D1"},
                          place(10, 10, 0),
                          {100, u"AcDbTable"},
                          place(11, 0, 1),
                          integer(91, 1),
                          integer(171, 1),
                          place(10, 99, 99)};
    expectBox(extents(add(u"ACAD_TABLE", table)), {8, 1, 0}, {9, 2, 0});
}

} // namespace
} // namespace geometry
