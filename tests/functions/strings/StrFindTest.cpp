#include "functions/textsearch.h"

#include "tests/support/HandlerTest.h"

namespace {

class StrFind : public HandlerTest
{
protected:
    Operations find(const std::u16string &pattern, const std::u16string &where, const Arguments &options = {})
    {
        Arguments arguments{text(pattern), text(where)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return call(acetStrFind, arguments);
    }
};

Operations at(int position, const char *released)
{
    return {"getArgs", "retInt " + std::to_string(position), std::string("releaseRb ") + released};
}

Operations nowhere(const char *released)
{
    return {"getArgs", "retNil", std::string("releaseRb ") + released};
}

const Arguments ignoringCase = {truth()};
const Arguments expression = {nil(), truth()};
const Arguments expressionIgnoringCase = {truth(), truth()};

} // namespace

TEST_F(StrFind, GivesThe1BasedPositionOfTheFirstOccurrence)
{
    EXPECT_EQ(find(u"lo", u"Hello"), at(4, "null"));
    EXPECT_EQ(find(u"LO", u"Hello"), nowhere("null"));
    EXPECT_EQ(find(u"LO", u"Hello", ignoringCase), at(4, "3"));
    EXPECT_EQ(find(u"l", u"Hello", {nil()}), at(3, "3"));
    EXPECT_EQ(find(u"x", u"Hello"), nowhere("null"));
}

TEST_F(StrFind, AnEmptyPatternIsFoundAtTheStart)
{
    EXPECT_EQ(find(u"", u"abc"), at(1, "null"));
    EXPECT_EQ(find(u"", u""), at(1, "null"));
    EXPECT_EQ(find(u"", u"abc", expression), at(1, "3"));
    EXPECT_EQ(find(u"a", u""), nowhere("null"));
}

TEST_F(StrFind, LowersBothTextsWithoutCaseAndLeavesPositionsAlone)
{
    EXPECT_EQ(find(u"Ö", u"\U00010400äö", ignoringCase), at(4, "3"));
    EXPECT_EQ(find(u"\U00010428", u"A\U00010400", ignoringCase), at(2, "3"));
    EXPECT_EQ(find(u"ss", u"ß", ignoringCase), nowhere("3"));
    EXPECT_EQ(find(u"a", u"\uFEFFa"), at(2, "null"));
}

TEST_F(StrFind, ARegularExpressionIsSearchedWhenTheFourthArgumentIsT)
{
    EXPECT_EQ(find(u"l+", u"Hello", expression), at(3, "3"));
    EXPECT_EQ(find(u"L+", u"Hello", expression), nowhere("3"));
    EXPECT_EQ(find(u"L+", u"Hello", expressionIgnoringCase), at(3, "3"));
    EXPECT_EQ(find(u"^b", u"a\nb", expression), nowhere("3")) << "lines begin only where the pattern asks for it";
    EXPECT_EQ(find(u"(?m)^b", u"a\nb", expression), at(3, "3"));
    EXPECT_EQ(find(u"(?<=b)", u"ab", expression), at(3, "3")) << "behind the last character";
}

TEST_F(StrFind, AFourthArgumentOfAnotherTypeLeavesItAPlainSearch)
{
    for (const Argument &flag : {nil(), shortInteger(1), text(u"T"), real(1), longInteger(5021)}) {
        EXPECT_EQ(find(u"l+", u"Hello", {nil(), flag}), nowhere("3")) << flag.type;
        EXPECT_EQ(find(u"L+", u"Hel+", {truth(), flag}), at(3, "3")) << flag.type;
    }
}

TEST_F(StrFind, AThirdArgumentOfAnotherTypeMakesAPlainSearchWithCaseAndTheFourthIsNotLookedAt)
{
    for (const Argument &flag : {shortInteger(1), text(u"T"), real(1), longInteger(5021)}) {
        EXPECT_EQ(find(u"LO", u"Hello", {flag}), nowhere("3")) << flag.type;
        EXPECT_EQ(find(u"l+", u"Hello", {flag, truth()}), nowhere("3")) << flag.type;
        EXPECT_EQ(find(u"l+", u"Hel+", {flag, truth()}), at(3, "3")) << flag.type;
    }
}

TEST_F(StrFind, AnInvalidRegularExpressionNeverMatchesAndIsNotReported)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(find(u"(", u"a(b", expression), nowhere("3"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(StrFind, AMissingStringIsRefused)
{
    EXPECT_EQ(call(acetStrFind, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrFind, {text(u"a")}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(StrFind, AnArgumentThatIsNoStringIsRefusedAndReleasedFromThereOn)
{
    EXPECT_EQ(call(acetStrFind, {nil(), text(u"a")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(acetStrFind, {text(u"a"), truth(), nil()}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2"}));
}
