#include "lisp/CommandLine.h"

#include "tests/support/HandlerTest.h"

namespace {

class CommandLine : public HandlerTest
{
};

} // namespace

TEST_F(CommandLine, PrintsPercentSignsAsTheyStand)
{
    printText(CFxString(u"100%s %d %% %"));
    EXPECT_EQ(host().operations(), Operations{operation("prompt", "100%s %d %% %")});
}

TEST_F(CommandLine, FailingPrintsTheMessageAndThenSetsNil)
{
    failWith("\nError: it\x92s over.");
    EXPECT_EQ(host().operations(), (Operations{operation("prompt", "\nError: it’s over."), "retNil"}));
}
