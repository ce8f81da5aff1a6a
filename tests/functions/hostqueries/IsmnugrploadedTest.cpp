#include "functions/hostqueries.h"

#include "tests/support/HandlerTest.h"

using Ismnugrploaded = HandlerTest;

TEST_F(Ismnugrploaded, CustomSendsTheTextCustomWithEqualsAndQuestionMark)
{
    EXPECT_EQ(call(ismnugrploaded, {text(u"CUSTOM")}),
              (Operations{"getArgs", operation("menuCmd", "CUSTOM=?"), "retT", "releaseRb 1"}));
}

TEST_F(Ismnugrploaded, AnyOtherStatusGivesNil)
{
    for (const int status : {StatusError, StatusNoInput, StatusCancelled}) {
        host().setAnswer("menuCmd", status);
        EXPECT_EQ(call(ismnugrploaded, {text(u""), text(u"more")}),
                  (Operations{"getArgs", operation("menuCmd", "=?"), "retNil", "releaseRb 1"}));
    }
}

TEST_F(Ismnugrploaded, AMissingOrWrongNameIsRefused)
{
    EXPECT_EQ(call(ismnugrploaded, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(ismnugrploaded, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
