#include "host/text/Layout.h"

#include <gtest/gtest.h>

namespace text {

namespace {

const FontName Sans{u"arial.ttf"};

double widthOf(std::u16string_view string)
{
    return layOutLine(string, Sans).width;
}

} // namespace

TEST(Layout, LettersStandBehindEachOther)
{
    const Layout layout = layOutLine(u"AB", Sans);
    ASSERT_EQ(layout.glyphs.size(), 2u);
    EXPECT_EQ(layout.glyphs[0].at, (Place{0, 0}));
    EXPECT_EQ(layout.glyphs[1].at, (Place{widthOf(u"A"), 0}));
    EXPECT_DOUBLE_EQ(layout.width, widthOf(u"A") + widthOf(u"B"));
}

TEST(Layout, PercentCodesAreCharacters)
{
    EXPECT_DOUBLE_EQ(widthOf(u"%%d"), widthOf(u"\u00b0"));
    EXPECT_DOUBLE_EQ(widthOf(u"%%P"), widthOf(u"\u00b1"));
    EXPECT_DOUBLE_EQ(widthOf(u"%%c"), widthOf(u"\u2300"));
    EXPECT_DOUBLE_EQ(widthOf(u"%%065"), widthOf(u"A"));
    EXPECT_DOUBLE_EQ(widthOf(u"50%%%"), widthOf(u"50%"));
    EXPECT_EQ(layOutLine(u"5%%z", Sans).glyphs.size(), 4u);
    EXPECT_EQ(layOutLine(u"%%", Sans).glyphs.size(), 2u);
    EXPECT_EQ(layOutLine(u"%%12", Sans).glyphs.size(), 4u);
}

TEST(Layout, UnderlineReachesFromItsSwitchToTheNextOrTheEnd)
{
    const Layout layout = layOutLine(u"a%%ubc%%ud%%Oe", Sans);
    ASSERT_EQ(layout.glyphs.size(), 5u);
    ASSERT_EQ(layout.rules.size(), 2u);
    EXPECT_EQ(layout.rules[0].from.x, layout.glyphs[1].at.x);
    EXPECT_EQ(layout.rules[0].to.x, layout.glyphs[3].at.x);
    EXPECT_LT(layout.rules[0].from.y, 0);
    EXPECT_EQ(layout.rules[1].from.x, layout.glyphs[4].at.x);
    EXPECT_EQ(layout.rules[1].to.x, layout.width);
    EXPECT_GT(layout.rules[1].from.y, 1);
}

TEST(Layout, BoundsAreThoseOfTheLettersNotOfSpaces)
{
    EXPECT_TRUE(layOutLine(u"  ", Sans).bounds().isEmpty());
    const Bounds bounds = layOutLine(u" H ", Sans).bounds();
    EXPECT_GT(bounds.left, widthOf(u" "));
    EXPECT_LT(bounds.right, widthOf(u" H"));
    EXPECT_DOUBLE_EQ(bounds.top, 1);
    EXPECT_LT(layOutLine(u"g", Sans).bounds().bottom, -0.1);
}

TEST(Layout, CharacterOfTwoUnitsIsOneLetter)
{
    EXPECT_EQ(layOutLine(u"\U0001d400", Sans).glyphs.size(), 1u);
}

} // namespace text
