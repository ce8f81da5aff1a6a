#include "functions/config.h"

#include "tests/support/HandlerTest.h"

namespace {

const std::string reading = R"(getProfileString "variables" "X" "" 512)";

class GetConfig : public HandlerTest
{
protected:
    Operations callFinding(const std::u16string &storedText)
    {
        host().setProfileText(storedText);
        return call(acetGetConfig, {text(u"X")});
    }
};

} // namespace

TEST_F(GetConfig, GivesTheStoredTextWithoutAPrefix)
{
    EXPECT_EQ(callFinding(u"größe 5%"),
              (Operations{"getArgs", reading, operation("retWStr", "größe 5%"), "releaseRb 1"}));
}

TEST_F(GetConfig, AValueIsReadBackUpTo511Characters)
{
    const QString longest(511, u'x');
    const Operations expected{"getArgs", reading, operation("retWStr", longest), "releaseRb 1"};
    EXPECT_EQ(callFinding(longest.toStdU16String()), expected);
    EXPECT_EQ(callFinding(std::u16string(512, u'x')), expected);
}

TEST_F(GetConfig, GivesTheEmptyTextWhenTheStoreGivesTheDefault)
{
    EXPECT_EQ(callFinding(u""), (Operations{"getArgs", reading, operation("retWStr", ""), "releaseRb 1"}));
}

TEST_F(GetConfig, GivesNilWhenTheStoreFails)
{
    host().setAnswer("getProfileString", StatusError);
    EXPECT_EQ(callFinding(u"a"), (Operations{"getArgs", reading, "retNil", "releaseRb 1"}));
    host().setAnswer("getProfileString", 5000);
    EXPECT_EQ(callFinding(u"a"), (Operations{"getArgs", reading, "retNil", "releaseRb 1"}));
}

TEST_F(GetConfig, LooksAtNothingBehindTheName)
{
    host().setProfileText(u"a");
    EXPECT_EQ(call(acetGetConfig, {text(u"X"), shortInteger(1)}),
              (Operations{"getArgs", reading, operation("retWStr", "a"), "releaseRb 1"}));
}

TEST_F(GetConfig, WithoutANameIsRefused)
{
    EXPECT_EQ(call(acetGetConfig, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(GetConfig, WithANameThatIsNoStringIsRefused)
{
    EXPECT_EQ(call(acetGetConfig, {shortInteger(1)}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
