#include "functions/strings.h"

#include "tests/support/HandlerTest.h"

namespace {

class Xstrcase : public HandlerTest
{
};

} // namespace

TEST_F(Xstrcase, GivesCapitals)
{
    EXPECT_EQ(call(xstrcase, {text(u"abC 1")}), (Operations{"getArgs", operation("retWStr", "ABC 1"), "releaseRb 1"}));
    EXPECT_EQ(call(xstrcase, {text(u"")}), (Operations{"getArgs", operation("retWStr", ""), "releaseRb 1"}));
}

TEST_F(Xstrcase, WithASecondArgumentStillGivesCapitals)
{
    EXPECT_EQ(call(xstrcase, {text(u"abc"), shortInteger(0)}),
              (Operations{"getArgs", operation("retWStr", "ABC"), "releaseRb 1"}));
}

TEST_F(Xstrcase, ChangesLettersBeyondAsciiOneForOne)
{
    EXPECT_EQ(call(xstrcase, {text(u"äéω\U00010428ß")}),
              (Operations{"getArgs", operation("retWStr", "ÄÉΩ\U00010400ß"), "releaseRb 1"}));
}

TEST_F(Xstrcase, WithoutAStringIsRefused)
{
    EXPECT_EQ(call(xstrcase, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(xstrcase, {shortInteger(1)}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
