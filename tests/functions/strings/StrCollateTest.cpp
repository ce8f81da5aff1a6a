#include "functions/strings.h"

#include "tests/support/HandlerTest.h"

namespace {

class StrCollate : public HandlerTest
{
protected:
    Operations ignoringCase(const std::u16string &first, const std::u16string &second)
    {
        return call(acetStrCollate, {text(first), text(second)});
    }

    Operations withCase(const std::u16string &first, const std::u16string &second)
    {
        return call(acetStrCollate, {text(first), text(second), shortInteger(1)});
    }
};

Operations result(int value, const char *released)
{
    return {"getArgs", "retInt " + std::to_string(value), std::string("releaseRb ") + released};
}

} // namespace

TEST_F(StrCollate, GivesMinus1ZeroOr1)
{
    EXPECT_EQ(ignoringCase(u"a", u"b"), result(-1, "null"));
    EXPECT_EQ(ignoringCase(u"b", u"a"), result(1, "null"));
    EXPECT_EQ(ignoringCase(u"A", u"a"), result(0, "null"));
    EXPECT_EQ(ignoringCase(u"a", u"z"), result(-1, "null"));
    EXPECT_EQ(ignoringCase(u"a", u"abcd"), result(-1, "null"));
    EXPECT_EQ(ignoringCase(u"abcd", u"a"), result(1, "null"));
}

TEST_F(StrCollate, WithTheFlag1TheSamePairIsNever0)
{
    EXPECT_EQ(withCase(u"A", u"a"), result(-1, "3"));
    EXPECT_EQ(withCase(u"a", u"A"), result(1, "3"));
}

TEST_F(StrCollate, OfTwoEmptyStringsIs0)
{
    EXPECT_EQ(ignoringCase(u"", u""), result(0, "null"));
    EXPECT_EQ(ignoringCase(u"", u"a"), result(-1, "null"));
}

TEST_F(StrCollate, OrdersByUtf16UnitsAndByNoLocale)
{
    EXPECT_EQ(withCase(u"Z", u"a"), result(-1, "3"));
    EXPECT_EQ(withCase(u"z", u"ä"), result(-1, "3"));
    EXPECT_EQ(withCase(u"a10", u"a9"), result(-1, "3"));
    EXPECT_EQ(withCase(u"\uFF5E", u"\U00010000"), result(1, "3")) << "surrogates stand before U+E000 and above";
    EXPECT_EQ(ignoringCase(u"Z", u"a"), result(1, "null"));
    EXPECT_EQ(ignoringCase(u"_", u"A"), result(-1, "null")) << "compared in small letters";
}

TEST_F(StrCollate, TIsNoFlag)
{
    EXPECT_EQ(call(acetStrCollate, {text(u"A"), text(u"a"), truth()}), result(0, "3"));
}

TEST_F(StrCollate, AMissingStringIsRefused)
{
    EXPECT_EQ(call(acetStrCollate, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrCollate, {text(u"a")}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(StrCollate, AnArgumentThatIsNoStringIsRefusedAndReleasedFromThereOn)
{
    EXPECT_EQ(call(acetStrCollate, {real(1)}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(acetStrCollate, {text(u"a"), nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 2"}));
}
