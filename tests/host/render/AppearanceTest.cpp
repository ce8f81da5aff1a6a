#include "tests/host/render/DrawnList.h"

#include <gtest/gtest.h>

namespace render {

namespace {

const Point Start{0, 0, 0}, End{10, 0, 0};

// The colour of the only thing that is drawn; nothing is drawn: none.
std::optional<std::uint32_t> onlyColor(const TestDrawing &test, const Surface &surface = {})
{
    const DisplayList list = test.list(surface);
    return list.items().size() == 1 ? std::optional(list.items()[0].rgb) : std::nullopt;
}

std::int64_t number(int value)
{
    return value;
}

} // namespace

TEST(Appearance, ColorComesFromTheEntityOrItsLayer)
{
    TestDrawing test;
    test.layer(u"GREEN", {{70, number(0)}, {62, number(3)}});
    test.line(Start, End, {{8, u"Green"}});
    test.line(Start, End, {{8, u"GREEN"}, {62, number(1)}});
    test.line(Start, End, {{8, u"GREEN"}, {62, number(1)}, {420, number(0x123456)}});
    test.line(Start, End, {{8, u"not in the table"}});
    const DisplayList list = test.list();
    ASSERT_EQ(list.items().size(), 4u);
    EXPECT_EQ(list.items()[0].rgb, 0x00ff00u); // names differ in more than case
    EXPECT_EQ(list.items()[1].rgb, 0xff0000u);
    EXPECT_EQ(list.items()[2].rgb, 0x123456u);
    EXPECT_EQ(list.items()[3].rgb, 0x000000u);
}

TEST(Appearance, ColorSevenContrastsWithTheBackground)
{
    TestDrawing test;
    test.line(Start, End, {{8, u"0"}});
    EXPECT_EQ(onlyColor(test, {0xffffff, true}), 0x000000u);
    EXPECT_EQ(onlyColor(test, {0x202020, true}), 0xffffffu);
}

TEST(Appearance, WhatIsHiddenIsNotDrawn)
{
    const GroupList off{{62, number(-3)}}, frozen{{70, number(1)}}, notPlotted{{290, number(0)}};
    for (const GroupList &layer : {off, frozen, notPlotted}) {
        TestDrawing test;
        test.layer(u"HIDDEN", layer);
        test.line(Start, End, {{8, u"HIDDEN"}});
        EXPECT_TRUE(test.list().items().empty());
        EXPECT_EQ(test.list({0xffffff, false}).items().size(), layer == notPlotted ? 1u : 0u);
    }
    TestDrawing test;
    test.line(Start, End, {{8, u"0"}, {60, number(1)}});
    EXPECT_TRUE(test.list().items().empty());
}

TEST(Appearance, ByBlockAndLayerZeroTakeWhatTheInsertHas)
{
    TestDrawing test;
    test.layer(u"RED", {{70, number(0)}, {62, number(1)}});
    const RecordId block = drawing::addBlock(test.drawing.database(), test.drawing.tables(), {u"B"});
    test.addTo(block, u"LINE", u"AcDbLine", {{10, Start}, {11, End}}, {{8, u"0"}});
    test.addTo(block, u"LINE", u"AcDbLine", {{10, Start}, {11, End}}, {{8, u"0"}, {62, number(0)}, {370, number(-2)}});
    test.insert(u"B", {}, {{8, u"RED"}, {62, number(5)}, {370, number(100)}});
    const DisplayList list = test.list();
    ASSERT_EQ(list.items().size(), 2u);
    EXPECT_EQ(list.items()[0].rgb, 0xff0000u); // of the insert's layer
    EXPECT_EQ(list.items()[1].rgb, 0x0000ffu); // of the insert
    EXPECT_FLOAT_EQ(list.items()[1].weight, 1);
}

TEST(Appearance, InsertOnAFrozenLayerHidesAllAndOneThatIsOffHidesItsOwn)
{
    for (const bool isFrozen : {true, false}) {
        TestDrawing test;
        test.layer(u"GONE", {{70, number(isFrozen ? 1 : 0)}, {62, number(isFrozen ? 1 : -1)}});
        test.layer(u"SHOWN", {{70, number(0)}, {62, number(2)}});
        const RecordId block = drawing::addBlock(test.drawing.database(), test.drawing.tables(), {u"B"});
        test.addTo(block, u"LINE", u"AcDbLine", {{10, Start}, {11, End}}, {{8, u"0"}});
        test.addTo(block, u"LINE", u"AcDbLine", {{10, Start}, {11, End}}, {{8, u"SHOWN"}});
        test.insert(u"B", {}, {{8, u"GONE"}});
        EXPECT_EQ(onlyColor(test).has_value(), !isFrozen);
    }
}

TEST(Appearance, WeightsAreMillimetres)
{
    TestDrawing test;
    test.layer(u"THICK", {{70, number(0)}, {62, number(1)}, {370, number(70)}});
    test.line(Start, End, {{8, u"THICK"}});
    test.line(Start, End, {{8, u"THICK"}, {370, number(13)}});
    test.line(Start, End, {{8, u"THICK"}, {370, number(-3)}});
    const DisplayList list = test.list();
    EXPECT_FLOAT_EQ(list.items()[0].weight, 0.7f);
    EXPECT_FLOAT_EQ(list.items()[1].weight, 0.13f);
    EXPECT_FLOAT_EQ(list.items()[2].weight, 0.25f);
}

} // namespace render
