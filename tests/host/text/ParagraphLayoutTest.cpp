#include "host/text/ParagraphLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace text {

namespace {

Layout layOut(std::u16string_view string, double width = 0, int attachment = 1)
{
    ParagraphText paragraphs;
    paragraphs.string = string;
    paragraphs.font = {u"arial.ttf"};
    paragraphs.width = width;
    paragraphs.attachment = attachment;
    return layOutParagraphs(paragraphs);
}

// The heights of the base lines, from below.
std::set<double> baseLines(const Layout &layout)
{
    std::set<double> lines;
    for (const PlacedGlyph &glyph : layout.glyphs)
        lines.insert(std::round(glyph.at.y * 1e6) / 1e6);
    return lines;
}

constexpr double LineDistance = 1.666667;

} // namespace

TEST(ParagraphLayout, FirstLineHangsBelowTheInsertionPointAndLinesFollowAtFiveThirds)
{
    EXPECT_EQ(baseLines(layOut(u"a\\Pb\\Pc")),
              (std::set<double>{-1, -1 - LineDistance, std::round((-1 - 10.0 / 3) * 1e6) / 1e6}));
    EXPECT_EQ(baseLines(layOut(u"a\nb")), (std::set<double>{-1, -1 - LineDistance}));
    EXPECT_EQ(baseLines(layOut(u"a\\P\\Pb")).size(), 2u);
}

TEST(ParagraphLayout, LinesAreBrokenAtSpacesWhereTheWidthEnds)
{
    const double word = layOutLine(u"word", {u"arial.ttf"}).width, space = layOutLine(u" ", {u"arial.ttf"}).width;
    EXPECT_EQ(baseLines(layOut(u"word word", 2 * word + space)).size(), 1u);
    EXPECT_EQ(baseLines(layOut(u"word word", 2 * word + space / 2)).size(), 2u);
    EXPECT_EQ(baseLines(layOut(u"word\\~word", word)).size(), 1u);
    const Layout broken = layOut(u"word word", word);
    EXPECT_DOUBLE_EQ(broken.glyphs[4].at.x, 0); // the space stays behind
}

TEST(ParagraphLayout, AttachmentPutsTheColumnAroundTheInsertionPoint)
{
    const double width = layOutLine(u"ab", {u"arial.ttf"}).width;
    EXPECT_DOUBLE_EQ(layOut(u"ab", 0, 2).glyphs[0].at.x, -width / 2);
    EXPECT_DOUBLE_EQ(layOut(u"ab", 0, 3).glyphs[0].at.x, -width);
    EXPECT_DOUBLE_EQ(layOut(u"ab", 10, 3).glyphs[0].at.x, -width);
    EXPECT_DOUBLE_EQ(layOut(u"ab", 10, 4).glyphs[0].at.y, -0.5);
    EXPECT_DOUBLE_EQ(layOut(u"ab", 10, 7).glyphs[0].at.y, 0);
}

TEST(ParagraphLayout, FormatsEndWithTheirBraces)
{
    const Layout layout = layOut(u"a{\\H2;\\C1;\\W0.5;b{\\H2x;c}d}e");
    ASSERT_EQ(layout.glyphs.size(), 5u);
    const double heights[] = {1, 2, 4, 2, 1};
    for (int i = 0; i < 5; ++i)
        EXPECT_DOUBLE_EQ(layout.glyphs[static_cast<std::size_t>(i)].height, heights[i]) << i;
    EXPECT_EQ(layout.glyphs[1].color.index, 1);
    EXPECT_EQ(layout.glyphs[4].color.index, -1);
    EXPECT_DOUBLE_EQ(layout.glyphs[1].widthFactor, 0.5);
    EXPECT_DOUBLE_EQ(layout.glyphs[0].at.y, -4); // the line is as high as its tallest letter
}

TEST(ParagraphLayout, CharactersThatHaveCodes)
{
    EXPECT_EQ(layOut(u"\\{\\}\\\\").glyphs.size(), 3u);
    EXPECT_EQ(layOut(u"%%d\\U+00b0").glyphs[0].glyph, layOut(u"\u00b0").glyphs[0].glyph);
    EXPECT_EQ(layOut(u"\\U+00b0").glyphs.size(), 1u);
    EXPECT_EQ(layOut(u"\\c255;a").glyphs[0].color.rgb, 0xff0000u);
    EXPECT_EQ(layOut(u"\\fTimes New Roman|b1|i0;a").glyphs[0].glyph, &faceFor({u"times", true}).glyph(U'a'));
    EXPECT_NEAR(layOut(u"\\Q45;a").glyphs[0].slant, 1, 1e-12);
}

TEST(ParagraphLayout, UnderlineGoesOnThroughSpaces)
{
    const Layout layout = layOut(u"a \\Lb c\\l d");
    double length = 0;
    for (const Rule &rule : layout.rules)
        length += rule.to.x - rule.from.x;
    EXPECT_NEAR(length, layOutLine(u"b c", {u"arial.ttf"}).width, 1e-9);
}

TEST(ParagraphLayout, FractionStandsSmallAboveAndBelowABar)
{
    const Layout layout = layOut(u"\\S1/2;");
    ASSERT_EQ(layout.glyphs.size(), 2u);
    ASSERT_EQ(layout.rules.size(), 1u);
    EXPECT_GT(layout.glyphs[0].at.y, layout.rules[0].from.y);
    EXPECT_LT(layout.glyphs[1].at.y + layout.glyphs[1].height, layout.rules[0].from.y);
    EXPECT_EQ(layOut(u"\\S+1^-2;").rules.size(), 0u);
}

TEST(ParagraphLayout, ParagraphsHaveIndentsAndAlignment)
{
    EXPECT_DOUBLE_EQ(layOut(u"\\pi2,l1;ab", 20).glyphs[0].at.x, 3);
    const double width = layOutLine(u"ab", {u"arial.ttf"}).width;
    EXPECT_DOUBLE_EQ(layOut(u"\\pqr;ab", 20).glyphs[0].at.x, 20 - width);
    EXPECT_DOUBLE_EQ(layOut(u"\\pxqc;ab", 20).glyphs[0].at.x, (20 - width) / 2);
}

TEST(ParagraphLayout, TextThatEndsInACodeIsNoHarm)
{
    for (const auto *string : {u"", u"\\", u"\\H", u"\\S", u"{", u"}}", u"\\f", u"\\U+12", u"\\H1e999;a", u"\\pi,;a"})
        EXPECT_LE(layOut(string).glyphs.size(), 5u);
}

} // namespace text
