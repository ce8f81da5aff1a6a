#include "tests/functions/strings/StrReplaceTest.h"

namespace {

class StrReplaceCount : public StrReplaceTest
{
protected:
    Operations plain(const std::u16string &pattern, const std::u16string &replacement, const std::u16string &where,
                     const Argument &count)
    {
        return replace(pattern, replacement, where, {nil(), nil(), count});
    }

    Operations expression(const std::u16string &pattern, const std::u16string &replacement, const std::u16string &where,
                          const Argument &count)
    {
        return replace(pattern, replacement, where, {nil(), truth(), count});
    }
};

} // namespace

TEST_F(StrReplaceCount, LimitsTheReplacements)
{
    EXPECT_EQ(plain(u"a", u"b", u"banana", shortInteger(2)), result("bbnbna", 6));
    EXPECT_EQ(plain(u"a", u"b", u"banana", shortInteger(32767)), result("bbnbnb", 6));
    EXPECT_EQ(replace(u"A", u"b", u"banana", {truth(), nil(), shortInteger(2)}), result("bbnbna", 6));
    EXPECT_EQ(expression(u".", u"x", u"banana", shortInteger(1)), result("xanana", 6));
}

TEST_F(StrReplaceCount, EachSearchRestartsAtTheStartOfTheReplacementJustMade)
{
    EXPECT_EQ(plain(u"a", u"aa", u"a", shortInteger(3)), result("aaaa", 6));
    EXPECT_EQ(plain(u"ab", u"b", u"aaab", shortInteger(9)), result("aab", 6)) << "and not before it";
    EXPECT_EQ(plain(u"a", u"xa", u"a", shortInteger(3)), result("xxxa", 6));
    EXPECT_EQ(expression(u"a", u"aa", u"a", shortInteger(3)), result("aaaa", 6));
}

TEST_F(StrReplaceCount, AnEmptyPatternPutsEveryReplacementAtTheStart)
{
    EXPECT_EQ(plain(u"", u"ab", u"c", shortInteger(3)), result("abababc", 6));
    EXPECT_EQ(expression(u"", u"ab", u"c", shortInteger(2)), result("ababc", 6));
}

TEST_F(StrReplaceCount, AReplacementCoversTheLengthOfThePatternNotOfTheMatch)
{
    EXPECT_EQ(expression(u"a+", u"x", u"caaat", shortInteger(1)), result("cxat", 6));
    EXPECT_EQ(expression(u"\\d", u"#", u"1abc", shortInteger(1)), result("#bc", 6)) << "more than was matched";
    EXPECT_EQ(expression(u"[0-9]", u"#", u"ab7", shortInteger(1)), result("ab#", 6)) << "up to the end at most";
    EXPECT_EQ(expression(u"$", u"!", u"ab", shortInteger(2)), result("ab!!", 6)) << "at the very end";
}

TEST_F(StrReplaceCount, DoesNotExpandBackReferences)
{
    EXPECT_EQ(expression(u"(a)", u"[\\1]", u"catch", shortInteger(1)), result("c[\\1]h", 6));
}

TEST_F(StrReplaceCount, WithoutCaseOfAnExpression)
{
    EXPECT_EQ(replace(u"A", u"x", u"aa", {truth(), truth(), shortInteger(1)}), result("xa", 6));
    EXPECT_EQ(expression(u"A", u"x", u"aa", shortInteger(1)), result("aa", 6));
}

TEST_F(StrReplaceCount, Of0ReturnsTheStringUnchanged)
{
    EXPECT_EQ(plain(u"a", u"b", u"banana", shortInteger(0)), result("banana", 6));
    EXPECT_EQ(expression(u"a", u"b", u"banana", shortInteger(0)), result("banana", 6));
}

TEST_F(StrReplaceCount, ANegativeCountReplacesAll)
{
    for (const std::int16_t count : {-1, -2, -32768}) {
        EXPECT_EQ(plain(u"a", u"b", u"banana", shortInteger(count)), result("bbnbnb", 6));
        EXPECT_EQ(expression(u"(a)", u"\\1\\1", u"banana", shortInteger(count)), result("baanaanaa", 6));
    }
}

TEST_F(StrReplaceCount, OfAnotherTypeReplacesAll)
{
    for (const Argument &count : {longInteger(1), real(1), text(u"1"), nil(), truth()})
        EXPECT_EQ(plain(u"a", u"b", u"banana", count), result("bbnbnb", 6)) << count.type;
}

TEST_F(StrReplaceCount, SurplusArgumentsAreIgnoredAndGoWithTheCount)
{
    EXPECT_EQ(replace(u"a", u"b", u"aa", {nil(), nil(), shortInteger(1), text(u"x")}), result("ba", 6));
}
