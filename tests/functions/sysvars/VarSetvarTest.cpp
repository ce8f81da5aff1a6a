#include "functions/sysvars.h"

#include "tests/support/HandlerTest.h"

#include <cmath>
#include <limits>

namespace {

class VarSetvar : public HandlerTest
{
protected:
    // What a call with a value does when it stores this text, in UTF-8.
    static Operations storing(const std::string &storedText, const std::string &result = "retT")
    {
        return {"getArgs", R"(setProfileString "Tarn" "X" ")" + storedText + '"', result, "releaseRb 2"};
    }
    Operations callWith(const Argument &value) { return call(acetVarSetvar, {text(u"X"), value}); }
};

} // namespace

TEST_F(VarSetvar, OfTheInteger5StoresINT__5)
{
    EXPECT_EQ(callWith(shortInteger(5)), storing("INT__5"));
}

TEST_F(VarSetvar, StoresIntegersOfBothWidthsInDecimal)
{
    EXPECT_EQ(callWith(shortInteger(-32768)), storing("INT__-32768"));
    EXPECT_EQ(callWith(shortInteger(0)), storing("INT__0"));
    EXPECT_EQ(callWith(longInteger(32768)), storing("INT__32768"));
    EXPECT_EQ(callWith(longInteger(std::numeric_limits<std::int32_t>::min())), storing("INT__-2147483648"));
}

TEST_F(VarSetvar, OfAShortReadsItsSixteenBitsAlone)
{
    EXPECT_EQ(callWith({TypeShort, {.longInteger = 0x70005}}), storing("INT__5"));
}

TEST_F(VarSetvar, ARealOneHalfIsStoredAsREA__0_5And1e20AsREA__1ePlus20)
{
    EXPECT_EQ(callWith(real(0.5)), storing("REA__0.5"));
    EXPECT_EQ(callWith(real(1e20)), storing("REA__1e+20"));
}

TEST_F(VarSetvar, StoresTheFewestDigitsOfARealThatReadBackExactly)
{
    EXPECT_EQ(callWith(real(0.1 + 0.2)), storing("REA__0.30000000000000004"));
    EXPECT_EQ(callWith(real(1.0 / 3)), storing("REA__0.3333333333333333"));
    EXPECT_EQ(callWith(real(-2)), storing("REA__-2"));
    EXPECT_EQ(callWith(real(1234567.0)), storing("REA__1234567"));
    EXPECT_EQ(callWith(real(5e-324)), storing("REA__5e-324"));
}

TEST_F(VarSetvar, StoresAStringItself)
{
    EXPECT_EQ(callWith(text(u"INT__5")), storing("INT__5"));
    EXPECT_EQ(callWith(text(u"")), storing(""));
    EXPECT_EQ(callWith(text(u"größe %1 %s\n\U0001F600")), storing("größe %1 %s\n\U0001F600"));
}

TEST_F(VarSetvar, APointOrTAsTheValueStoresTheEmptyTextAndStillYieldsTWhenTheStoreAccepts)
{
    EXPECT_EQ(callWith({TypePoint3d, {.point = {1, 2, 3}}}), storing(""));
    EXPECT_EQ(callWith(point2d(1, 2)), storing(""));
    EXPECT_EQ(callWith(truth()), storing(""));
    EXPECT_EQ(callWith(nil()), storing(""));
}

TEST_F(VarSetvar, WithoutAValueStoresNothingAndSetsNoResult)
{
    EXPECT_EQ(call(acetVarSetvar, {text(u"X")}), (Operations{"getArgs", "releaseRb null"}));
}

TEST_F(VarSetvar, GivesNilWhenTheStoreRefuses)
{
    host().setAnswer("setProfileString", StatusError);
    EXPECT_EQ(callWith(text(u"a")), storing("a", "retNil"));
    host().setAnswer("setProfileString", 5000);
    EXPECT_EQ(callWith(text(u"a")), storing("a", "retNil"));
}

TEST_F(VarSetvar, PassesTheNameAsItIs)
{
    EXPECT_EQ(call(acetVarSetvar, {text(u"OsMode = [ä]"), text(u"a")}),
              (Operations{"getArgs", R"(setProfileString "Tarn" "OsMode = [ä]" "a")", "retT", "releaseRb 2"}));
}

TEST_F(VarSetvar, LooksAtNothingBehindTheValue)
{
    EXPECT_EQ(call(acetVarSetvar, {text(u"X"), text(u"a"), nil()}), storing("a"));
}

TEST_F(VarSetvar, WithoutANameIsRefused)
{
    EXPECT_EQ(call(acetVarSetvar, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(VarSetvar, WithANameThatIsNoStringIsRefused)
{
    EXPECT_EQ(call(acetVarSetvar, {shortInteger(1), text(u"a")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
