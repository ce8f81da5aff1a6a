#include "functions/pending.h"

#include "tests/support/HandlerTest.h"

namespace {

class Pending : public HandlerTest
{
};

} // namespace

TEST_F(Pending, SaysSoAndGivesNil)
{
    EXPECT_EQ(call(notAvailableYet, {text(u"any"), nil()}),
              (Operations{operation("prompt", "\nError: not available yet."), "retNil"}));
}
