#include "tests/functions/strings/StrReplaceTest.h"

namespace {

class StrReplaceAll : public StrReplaceTest
{
};

const Arguments ignoringCase = {truth()};
const Arguments expression = {nil(), truth()};

} // namespace

TEST_F(StrReplaceAll, ReplacesEveryOccurrence)
{
    EXPECT_EQ(replace(u"a", u"b", u"banana"), result("bbnbnb", 3));
    EXPECT_EQ(replace(u"A", u"b", u"banana", ignoringCase), result("bbnbnb", 4));
    EXPECT_EQ(replace(u"A", u"b", u"banana"), result("banana", 3));
    EXPECT_EQ(replace(u"an", u"", u"banana"), result("ba", 3));
    EXPECT_EQ(replace(u"a", u"aa", u"aba"), result("aabaa", 3)) << "never looks at what it has put in";
}

TEST_F(StrReplaceAll, AnEmptyPatternIsFoundBetweenAllCharacters)
{
    EXPECT_EQ(replace(u"", u"-", u"abc"), result("-a-b-c-", 3));
    EXPECT_EQ(replace(u"", u"-", u""), result("-", 3));
    EXPECT_EQ(replace(u"a", u"", u""), result("", 3));
}

TEST_F(StrReplaceAll, LettersBeyondAsciiLoseTheirCaseToo)
{
    EXPECT_EQ(replace(u"ÄÖ", u"x", u"äö ÄÖ", ignoringCase), result("x x", 4));
}

TEST_F(StrReplaceAll, AByteOrderMarkIsACharacterLikeAnyOther)
{
    EXPECT_EQ(replace(u"\uFEFFb", u"\uFEFFc", u"\uFEFFb b"),
              (Operations{"getArgs", operation("retWStr", u"\uFEFFc b"_qs), "releaseRb 3"}));
    EXPECT_EQ(replace(u"\uFFFEb", u"c", u"\uFFFEb"), result("c", 3));
}

TEST_F(StrReplaceAll, PlainTextIsNoExpressionAndItsReplacementHasNoBackReferences)
{
    EXPECT_EQ(replace(u".", u"\\1\\0", u"a.b"), result("a\\1\\0b", 3));
}

TEST_F(StrReplaceAll, BackReferencesAreExpanded)
{
    EXPECT_EQ(replace(u"(a)", u"[\\1]", u"cat", expression), result("c[a]t", 5));
    EXPECT_EQ(replace(u"(\\d+)x(\\d+)", u"\\2x\\1", u"10x20 3x4", expression), result("20x10 4x3", 5));
    EXPECT_EQ(replace(u"(a)", u"\\2", u"a", expression), result("\\2", 5)) << "there is no second group";
}

TEST_F(StrReplaceAll, EveryMatchIsReplacedWhole)
{
    EXPECT_EQ(replace(u"a+", u"x", u"caaat a", expression), result("cxt x", 5));
    EXPECT_EQ(replace(u"A+", u"x", u"caaat a", {truth(), truth()}), result("cxt x", 5));
    EXPECT_EQ(replace(u"b*", u"-", u"abc", expression), result("-a--c-", 5));
}

TEST_F(StrReplaceAll, AnInvalidRegularExpressionReturnsTheStringUnchangedAndIsNotReported)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(replace(u"(", u"x", u"a(b", expression), result("a(b", 5));
    EXPECT_EQ(replace(u"(", u"x", u"a(b", {nil(), truth(), shortInteger(1)}), result("a(b", 6));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(StrReplaceAll, AFourthArgumentThatIsNeitherTNorNilStopsTheReading)
{
    for (const Argument &flag : {shortInteger(1), text(u"T"), real(1), longInteger(5021)})
        EXPECT_EQ(replace(u"A", u"b", u"aA", {flag, truth(), shortInteger(0)}), result("ab", 4)) << flag.type;
}

TEST_F(StrReplaceAll, AFifthArgumentThatIsNeitherTNorNilStopsTheReading)
{
    for (const Argument &flag : {shortInteger(1), text(u"T"), real(1), longInteger(5021)})
        EXPECT_EQ(replace(u".", u"b", u"a.a.", {truth(), flag, shortInteger(0)}), result("abab", 5)) << flag.type;
}

TEST_F(StrReplaceAll, AMissingStringIsRefused)
{
    EXPECT_EQ(call(acetStrReplace, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrReplace, {text(u"a")}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrReplace, {text(u"a"), text(u"b")}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(StrReplaceAll, AnArgumentThatIsNoStringIsRefusedAndReleasedFromThereOn)
{
    EXPECT_EQ(call(acetStrReplace, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(acetStrReplace, {text(u"a"), real(1), text(u"c")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2"}));
    EXPECT_EQ(call(acetStrReplace, {text(u"a"), text(u"b"), shortInteger(1), nil()}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 3"}));
}
