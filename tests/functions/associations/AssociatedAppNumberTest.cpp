// Where the numbers of the shell divide. The shell is a stand-in here.

#include "functions/associations.h"

#include "platform/Shell.h"
#include "tests/support/HandlerTest.h"
#include "tests/support/StandIn.h"

#include <algorithm>

namespace {

std::intptr_t number = 0;

} // namespace

STAND_IN(HINSTANCE, FindExecutableW, (LPCWSTR, LPCWSTR, LPWSTR result))
{
    const std::u16string_view program = u"/program";
    *std::copy(program.begin(), program.end(), result) = 0;
    return reinterpret_cast<HINSTANCE>(number);
}

class AssociatedAppNumber : public HandlerTest
{
};

TEST_F(AssociatedAppNumber, Of32IsASuccess)
{
    number = 32;
    EXPECT_EQ(call(acetFilenameAssociatedApp, {text(u"a")}),
              (Operations{"getArgs", operation("retWStr", "/program"), "releaseRb 1"}));
}

TEST_F(AssociatedAppNumber, OfLessThan32IsAnErrorCode)
{
    for (const int code : {0, 2, 31}) {
        number = code;
        EXPECT_EQ(call(acetFilenameAssociatedApp, {text(u"a")}),
                  (Operations{"getArgs", "retInt " + std::to_string(code), "releaseRb 1"}));
    }
}
