#include "functions/strings.h"

#include "tests/support/HandlerTest.h"

namespace {

class StrWcmatch : public HandlerTest
{
protected:
    // What is handed to the host's matcher for these arguments, and what comes after it.
    Operations matched(const char *operands, const char *result, const char *released)
    {
        return {"getArgs", std::string("wcMatch ") + operands, result, std::string("releaseRb ") + released};
    }
};

} // namespace

TEST_F(StrWcmatch, HandsTheHostBothTextsInCapitalsTheStringFirst)
{
    EXPECT_EQ(call(acetStrWcmatch, {text(u"Door"), text(u"D*")}), matched("\"DOOR\" \"D*\"", "retT", "null"));
    EXPECT_EQ(call(acetStrWcmatch, {text(u"door"), text(u"D*")}), matched("\"DOOR\" \"D*\"", "retT", "null"));
}

TEST_F(StrWcmatch, DoorAgainstCapitalDAndAStarMatchesAndWithTheFlag1DoesNot)
{
    EXPECT_EQ(call(acetStrWcmatch, {text(u"door"), text(u"D*")}), matched("\"DOOR\" \"D*\"", "retT", "null"));
    host().setAnswer("wcMatch", -5001); // as a host says that tells upper from lower case
    EXPECT_EQ(call(acetStrWcmatch, {text(u"door"), text(u"D*"), shortInteger(1)}),
              matched("\"door\" \"D*\"", "retNil", "3"));
}

TEST_F(StrWcmatch, WithTheFlag1HandsBothTextsOverUnchanged)
{
    EXPECT_EQ(call(acetStrWcmatch, {text(u"door"), text(u"D[a-z]*"), shortInteger(1)}),
              matched("\"door\" \"D[a-z]*\"", "retT", "3"));
}

TEST_F(StrWcmatch, AnyStatusOfTheHostButNormalIsNil)
{
    for (const int status : {-5001, 5000, 0, 1}) {
        host().setAnswer("wcMatch", status);
        EXPECT_EQ(call(acetStrWcmatch, {text(u"a"), text(u"[")}), matched("\"A\" \"[\"", "retNil", "null")) << status;
    }
}

TEST_F(StrWcmatch, ACaseFlagOfTOr0LeavesTheMatchCaseInsensitiveOnlyTheInteger1MakesItCaseSensitive)
{
    for (const Argument &flag : {truth(), nil(), shortInteger(0), shortInteger(2), shortInteger(-1), real(1.0),
                                 text(u"1"), longInteger(65536)})
        EXPECT_EQ(call(acetStrWcmatch, {text(u"a"), text(u"A"), flag}), matched("\"A\" \"A\"", "retT", "3"))
            << flag.type;
}

TEST_F(StrWcmatch, TheFlagIsReadAsA16BitIntegerWhateverItsType)
{
    for (const Argument &flag : {longInteger(1), longInteger(65537)})
        EXPECT_EQ(call(acetStrWcmatch, {text(u"a"), text(u"A"), flag}), matched("\"a\" \"A\"", "retT", "3"));
}

TEST_F(StrWcmatch, UpperCasingAlsoAppliesToThePatternSoPatternClassesInLowerCaseMatchBoth)
{
    EXPECT_EQ(call(acetStrWcmatch, {text(u"äb"), text(u"[ä-ö]@~x")}), matched("\"ÄB\" \"[Ä-Ö]@~X\"", "retT", "null"));
}

TEST_F(StrWcmatch, SurplusArgumentsAreIgnoredAndGoWithTheFlag)
{
    EXPECT_EQ(call(acetStrWcmatch, {text(u"a"), text(u"b"), nil(), real(1)}), matched("\"A\" \"B\"", "retT", "3"));
}

TEST_F(StrWcmatch, AMissingStringIsRefused)
{
    EXPECT_EQ(call(acetStrWcmatch, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrWcmatch, {text(u"a")}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(StrWcmatch, AnArgumentThatIsNoStringIsRefusedAndReleasedFromThereOn)
{
    EXPECT_EQ(call(acetStrWcmatch, {nil(), text(u"a")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(acetStrWcmatch, {text(u"a"), shortInteger(1), nil()}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2"}));
}
