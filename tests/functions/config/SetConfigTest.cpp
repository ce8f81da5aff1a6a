#include "functions/config.h"

#include "tests/support/HandlerTest.h"

namespace {

class SetConfig : public HandlerTest
{
protected:
    const Operations m_storing{"getArgs", R"(setProfileString "variables" "X" "größe 5%")", "releaseRb 2"};
    Operations callStoring() { return call(acetSetConfig, {text(u"X"), text(u"größe 5%")}); }
};

} // namespace

TEST_F(SetConfig, StoresTheTextWithoutAPrefix)
{
    EXPECT_EQ(callStoring(), m_storing);
}

TEST_F(SetConfig, AlwaysYieldsNilWhetherTheWriteSucceededOrNot)
{
    EXPECT_EQ(callStoring(), m_storing); // no result is set: nil
    host().setAnswer("setProfileString", StatusError);
    EXPECT_EQ(callStoring(), m_storing);
}

TEST_F(SetConfig, LooksAtNothingBehindTheValue)
{
    EXPECT_EQ(call(acetSetConfig, {text(u"X"), text(u"größe 5%"), nil()}), m_storing);
}

TEST_F(SetConfig, WithANameAndNoValuePrintsTooFewArgumentsAndWritesNothing)
{
    EXPECT_EQ(call(acetSetConfig, {text(u"X")}), (Operations{"getArgs", tooFewArguments, "retNil", "releaseRb null"}));
}

TEST_F(SetConfig, WithAValueThatIsNoStringWritesNothing)
{
    EXPECT_EQ(call(acetSetConfig, {text(u"X"), shortInteger(5)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "releaseRb null"}));
}

TEST_F(SetConfig, WithoutANameIsRefused)
{
    EXPECT_EQ(call(acetSetConfig, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(SetConfig, WithANameThatIsNoStringIsRefused)
{
    EXPECT_EQ(call(acetSetConfig, {nil(), text(u"a")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
