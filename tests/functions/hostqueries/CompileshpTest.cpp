#include "functions/hostqueries.h"

#include "tests/support/HandlerTest.h"

using Compileshp = HandlerTest;

TEST_F(Compileshp, GivesTWhenTheHostCompiles)
{
    EXPECT_EQ(call(wexoCompileshp, {text(u"a.shp"), text(u"b.shx")}),
              (Operations{"getArgs", "compileShape \"a.shp\" \"b.shx\"", "retT", "releaseRb 2"}));
}

TEST_F(Compileshp, GivesNothingWhenTheHostDoesNot)
{
    host().setAnswer("compileShape", StatusError);
    EXPECT_EQ(call(wexoCompileshp, {text(u"a.shp"), text(u"b.shx")}),
              (Operations{"getArgs", "compileShape \"a.shp\" \"b.shx\"", "releaseRb 2"}));
}

TEST_F(Compileshp, WithOneFileGivesNoResult)
{
    EXPECT_EQ(call(wexoCompileshp, {text(u"a.shp")}), (Operations{"getArgs", "releaseRb null"}));
    EXPECT_EQ(call(wexoCompileshp, {text(u"a.shp"), nil()}), (Operations{"getArgs", "releaseRb 2"}));
}

TEST_F(Compileshp, WithoutAFirstFileReturnsAtOnce)
{
    EXPECT_EQ(call(wexoCompileshp, {}), (Operations{"getArgs"}));
    EXPECT_EQ(call(wexoCompileshp, {nil(), text(u"b.shx")}), (Operations{"getArgs"}));
}
