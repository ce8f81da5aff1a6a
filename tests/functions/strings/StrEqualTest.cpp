#include "functions/strings.h"

#include "tests/support/HandlerTest.h"

namespace {

const Operations equal = {"getArgs", "retT", "releaseRb null"};
const Operations different = {"getArgs", "retNil", "releaseRb null"};

class StrEqual : public HandlerTest
{
};

} // namespace

TEST_F(StrEqual, OfAbcAndAbcInCapitalsGivesT)
{
    EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"ABC")}), equal);
    EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"abd")}), different);
    EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"ab")}), different);
}

TEST_F(StrEqual, WithTheFlag1CaseCounts)
{
    EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"ABC"), shortInteger(1)}),
              (Operations{"getArgs", "retNil", "releaseRb 3"}));
    EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"abc"), shortInteger(1)}),
              (Operations{"getArgs", "retT", "releaseRb 3"}));
}

TEST_F(StrEqual, TIsNot1AndNeitherIsAnythingElse)
{
    for (const Argument &flag : {truth(), nil(), shortInteger(0), shortInteger(2), shortInteger(-1), real(1.0),
                                 text(u"1"), longInteger(65536)})
        EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"ABC"), flag}),
                  (Operations{"getArgs", "retT", "releaseRb 3"}))
            << flag.type;
}

TEST_F(StrEqual, TheFlagIsReadAsA16BitIntegerWhateverItsType)
{
    for (const Argument &flag : {longInteger(1), longInteger(65537)})
        EXPECT_EQ(call(acetStrEqual, {text(u"abc"), text(u"ABC"), flag}),
                  (Operations{"getArgs", "retNil", "releaseRb 3"}));
}

TEST_F(StrEqual, TwoEmptyStringsAreEqual)
{
    EXPECT_EQ(call(acetStrEqual, {text(u""), text(u"")}), equal);
}

TEST_F(StrEqual, IgnoresTheCaseOfLettersBeyondAscii)
{
    EXPECT_EQ(call(acetStrEqual, {text(u"ÄÉΩЯ\U00010400"), text(u"äéωя\U00010428")}), equal);
    EXPECT_EQ(call(acetStrEqual, {text(u"straße"), text(u"STRASSE")}), different);
}

TEST_F(StrEqual, SurplusArgumentsAreIgnoredAndGoWithTheFlag)
{
    EXPECT_EQ(call(acetStrEqual, {text(u"a"), text(u"a"), nil(), text(u"b")}),
              (Operations{"getArgs", "retT", "releaseRb 3"}));
}

TEST_F(StrEqual, AMissingStringIsRefused)
{
    EXPECT_EQ(call(acetStrEqual, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrEqual, {text(u"a")}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(StrEqual, AnArgumentThatIsNoStringIsRefusedAndReleasedFromThereOn)
{
    EXPECT_EQ(call(acetStrEqual, {nil(), text(u"a")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(acetStrEqual, {text(u"a"), shortInteger(1), nil()}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2"}));
}
