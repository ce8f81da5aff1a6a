#include "host/text/Faces.h"

#include <gtest/gtest.h>

namespace text {

namespace {

double advanceOf(char32_t character, std::u16string_view font)
{
    return faceFor({font}).glyph(character).advance;
}

} // namespace

TEST(Faces, CapitalsAreOneUnitHighInEveryFont)
{
    for (const auto font : {u"arial.ttf", u"arialn.ttf", u"times.ttf", u"cour.ttf", u"txt", u"italic.shx"}) {
        const Bounds &bounds = faceFor({font}).glyph(U'H').bounds;
        EXPECT_DOUBLE_EQ(bounds.bottom, 0);
        EXPECT_DOUBLE_EQ(bounds.top, 1);
    }
}

TEST(Faces, LetterWidthsFollowTheKindOfFont)
{
    EXPECT_DOUBLE_EQ(advanceOf(U'i', u"Courier New"), advanceOf(U'M', u"COUR.TTF"));
    EXPECT_LT(advanceOf(U'i', u"arial.ttf"), advanceOf(U'M', u"arial.ttf"));
    EXPECT_LT(advanceOf(U'M', u"Arial Narrow"), advanceOf(U'M', u"Arial"));
    EXPECT_EQ(&faceFor({u"C:\\Fonts\\Simplex.SHX"}), &faceFor({u"txt"}));
    EXPECT_EQ(&faceFor({u"unheard-of.shx"}), &faceFor({u"txt.shx"}));
    EXPECT_EQ(&faceFor({u"unheard-of.ttf"}), &faceFor({u"arial.ttf"}));
    EXPECT_NE(&faceFor({u"times.ttf"}), &faceFor({u"arial.ttf"}));
    EXPECT_NE(&faceFor({u"arial.ttf", true}), &faceFor({u"arial.ttf"}));
    EXPECT_EQ(&faceFor({u"OpenSans-BoldItalic.ttf"}), &faceFor({u"arial", true, true}));
    EXPECT_EQ(&faceFor({u"arialbi.ttf"}), &faceFor({u"arial", true, true}));
    EXPECT_EQ(&faceFor({u"timesi.ttf"}), &faceFor({u"times", false, true}));
    EXPECT_EQ(&faceFor({u"arial.ttf"}), &faceFor({u"Arial"}));
    EXPECT_NE(&faceFor({u"arial.ttf", true, true}), &faceFor({u"arial.ttf", false, true}));
}

TEST(Faces, OutlineLiesWithinTheBoundsAndReachesThem)
{
    const Glyph &glyph = faceFor({u"arial.ttf"}).glyph(U'O');
    Bounds seen;
    for (const auto &loop : glyph.outline)
        for (const Place &place : loop)
            seen.add(place);
    EXPECT_EQ(glyph.outline.size(), 2u); // the letter and its hole
    EXPECT_NEAR(seen.top, glyph.bounds.top, 0.01);
    EXPECT_NEAR(seen.left, glyph.bounds.left, 0.01);
    EXPECT_LE(seen.right, glyph.bounds.right + 1e-12);
}

TEST(Faces, SpaceHasWidthAndNoOutline)
{
    const Glyph &glyph = faceFor({u"arial.ttf"}).glyph(U' ');
    EXPECT_GT(glyph.advance, 0.2);
    EXPECT_TRUE(glyph.bounds.isEmpty());
    EXPECT_TRUE(glyph.outline.empty());
}

TEST(Faces, CharacterThatTheFontLacksComesFromTheFallback)
{
    constexpr char32_t Diameter = U'\u2300';
    const Face &face = faceFor({u"arial.ttf"});
    ASSERT_FALSE(face.has(Diameter));
    EXPECT_FALSE(face.glyph(Diameter).outline.empty());
    EXPECT_NE(face.glyph(Diameter).outline.size(), face.glyph(char32_t{0x10ffff}).outline.size());
}

} // namespace text
