#include "functions/undo.h"

#include "tests/support/HandlerTest.h"

#include <gmock/gmock.h>

namespace {

class UtilVer : public HandlerTest
{
};

} // namespace

TEST_F(UtilVer, IsTheProductWithItsBuildDateAndArgumentsAreIgnored)
{
    const Operations operations = call(acetUtilVer, {text(u"any")});
    ASSERT_EQ(operations.size(), 1u);
    EXPECT_THAT(
        operations[0],
        testing::MatchesRegex("retStr \"LispExtension Version: "
                              "(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) ( [1-9]|[1-3][0-9]) 20[0-9][0-9]\""));
}
