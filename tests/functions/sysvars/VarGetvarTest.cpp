#include "functions/sysvars.h"

#include "tests/support/HandlerTest.h"

namespace {

const std::string reading = R"(getProfileString "Tarn" "X" "" 255)";

class VarGetvar : public HandlerTest
{
protected:
    Operations callFinding(const std::u16string &storedText)
    {
        host().setProfileText(storedText);
        return call(acetVarGetvar, {text(u"X")});
    }
};

} // namespace

TEST_F(VarGetvar, OfAnIntegerGivesINT__5AndNot5)
{
    EXPECT_EQ(callFinding(u"INT__5"), (Operations{"getArgs", reading, operation("retWStr", "INT__5"), "releaseRb 1"}));
}

TEST_F(VarGetvar, OfAKeyThatWasNeverWrittenYieldsTheDefaultAndNotNil)
{
    EXPECT_EQ(callFinding(u""), (Operations{"getArgs", reading, operation("retWStr", ""), "releaseRb 1"}));
}

TEST_F(VarGetvar, GivesNilWhenTheStoreFails)
{
    host().setAnswer("getProfileString", StatusError);
    EXPECT_EQ(callFinding(u"a"), (Operations{"getArgs", reading, "retNil", "releaseRb 1"}));
    host().setAnswer("getProfileString", 5000);
    EXPECT_EQ(callFinding(u"a"), (Operations{"getArgs", reading, "retNil", "releaseRb 1"}));
}

TEST_F(VarGetvar, GivesNoMoreThan254Units)
{
    const QString longest(254, u'x');
    const Operations expected{"getArgs", reading, operation("retWStr", longest), "releaseRb 1"};
    EXPECT_EQ(callFinding(longest.toStdU16String()), expected);
    EXPECT_EQ(callFinding(std::u16string(300, u'x')), expected);
}

TEST_F(VarGetvar, TakesPercentSignsInTheTextForWhatTheyAre)
{
    EXPECT_EQ(callFinding(u"100% %s %1 %n"),
              (Operations{"getArgs", reading, operation("retWStr", "100% %s %1 %n"), "releaseRb 1"}));
}

TEST_F(VarGetvar, LooksAtNothingBehindTheName)
{
    host().setProfileText(u"a");
    EXPECT_EQ(call(acetVarGetvar, {text(u"X"), nil()}),
              (Operations{"getArgs", reading, operation("retWStr", "a"), "releaseRb 1"}));
}

TEST_F(VarGetvar, WithoutANameIsRefused)
{
    EXPECT_EQ(call(acetVarGetvar, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(VarGetvar, WithANameThatIsNoStringIsRefused)
{
    EXPECT_EQ(call(acetVarGetvar, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
