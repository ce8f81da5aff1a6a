#include "host/interpreter/text/Keywords.h"

#include <gtest/gtest.h>

using lisp::Keywords;

namespace {

// The keyword that the text means, "-" for none.
std::u16string match(std::u16string_view list, std::u16string_view typed)
{
    return Keywords(list).match(typed).value_or(u"-");
}

} // namespace

TEST(Keywords, AreShortenedToTheirCapitals)
{
    for (const std::u16string_view typed : {u"LT", u"lt", u"LTy", u"ltype", u"LTYPE"})
        EXPECT_EQ(match(u"Yes LType", typed), u"LType");
    for (const std::u16string_view typed : {u"L", u"LTX", u"LTYPES", u""})
        EXPECT_EQ(match(u"Yes LType", typed), u"-");
}

TEST(Keywords, ACommaNamesTheShortFormApart)
{
    for (const std::u16string_view typed : {u"lt", u"LTY", u"ltype"})
        EXPECT_EQ(match(u"LTYPE,LT YES,Y", typed), u"LTYPE");
    EXPECT_EQ(match(u"LTYPE,LT YES,Y", u"y"), u"YES");
    EXPECT_EQ(match(u"LTYPE,LT", u"L"), u"-");
}

TEST(Keywords, CapitalsMayStandInTheMiddle)
{
    for (const std::u16string_view typed : {u"x", u"XI", u"exit", u"ex"})
        EXPECT_EQ(match(u"eXit", typed), u"eXit");
    EXPECT_EQ(match(u"eXit", u"e"), u"-");
}

TEST(Keywords, DigitsBelongToTheShortForm)
{
    EXPECT_EQ(match(u"2Dpoly 3Dpoly", u"3d"), u"3Dpoly");
    EXPECT_EQ(match(u"2Dpoly 3Dpoly", u"3"), u"-");
}

TEST(Keywords, WithoutCapitalsTheWholeWordIsNeeded)
{
    EXPECT_EQ(match(u"all", u"ALL"), u"all");
    EXPECT_EQ(match(u"all", u"al"), u"-");
}

TEST(Keywords, TheFirstOneThatFitsWins)
{
    EXPECT_EQ(match(u"Yes Yards", u"y"), u"Yes");
}

TEST(Keywords, LocalWordsGiveTheNamesBehindTheUnderscore)
{
    for (const std::u16string_view typed : {u"o", u"oui", u"_Yes", u"_yes"})
        EXPECT_EQ(match(u"Oui Non _Yes No", typed), u"Yes");
    EXPECT_EQ(match(u"Oui Non _Yes No", u"non"), u"No");
    EXPECT_EQ(match(u"Oui Non _Yes No", u"yes"), u"-");
}

TEST(Keywords, AnUnderscoreMayPrecedeAnyKeyword)
{
    EXPECT_EQ(match(u"Yes No", u"_y"), u"Yes");
}

TEST(Keywords, BlanksAroundTheListDoNotMatter)
{
    EXPECT_EQ(match(u"  Yes   No ", u"n"), u"No");
    EXPECT_TRUE(Keywords(u"  ").isEmpty());
    EXPECT_EQ(match(u"_", u"_"), u"-");
}
