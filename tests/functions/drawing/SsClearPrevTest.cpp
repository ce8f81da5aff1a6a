#include "functions/drawing.h"

#include "tests/support/HandlerTest.h"

namespace {

class SsClearPrev : public HandlerTest
{
};

Operations expected(int savedValue)
{
    return {"newRb 5003",
            "newRb 5003",
            operation("getVar", "pickfirst"),
            operation("setVar", "pickfirst") + " 1",
            "buildListNarrow",
            R"(commandNarrow "_.line" "0,0" "0,0" " " "_.select" "_l" " " "_.erase")",
            operation("setVar", "pickfirst") + ' ' + std::to_string(savedValue),
            "releaseRbNarrow list",
            "releaseRb list",
            "releaseRb list"};
}

} // namespace

TEST_F(SsClearPrev, ThePickfirstSettingHasItsOldValueAfterwards)
{
    for (const int saved : {0, 1}) {
        host().replies.number = saved;
        EXPECT_EQ(call(acetSsClearPrev, {}), expected(saved));
    }
}

TEST_F(SsClearPrev, ArgumentsAreNotRead)
{
    EXPECT_EQ(call(acetSsClearPrev, {text(u"a"), nil()}), expected(0));
}

TEST_F(SsClearPrev, IgnoresTheStatusesOfAllHostCalls)
{
    for (const char *operation : {"getVar", "setVar", "commandNarrow"})
        host().setAnswer(operation, StatusError);
    EXPECT_EQ(call(acetSsClearPrev, {}), expected(0));
}
