#include "functions/config.h"

#include "tests/support/HandlerTest.h"

using Prodkey = HandlerTest;

TEST_F(Prodkey, OfTheMachineLiesBelowTheNodeOf32BitPrograms)
{
    EXPECT_EQ(call(acetRegProdkey, {}),
              (Operations{operation("retWStr", R"(Software\Wow6432Node\Velmora GmbH\Tarn Studio 2016)")}));
}

TEST_F(Prodkey, OfTheUserDoesNot)
{
    const Operations expected{operation("retWStr", R"(Software\Velmora GmbH\Tarn Studio 2016)")};
    EXPECT_EQ(call(acetRegUserProdkey, {}), expected);
    EXPECT_EQ(call(acetRegUserProdkey, {text(u"a")}), expected);
}

TEST_F(Prodkey, MachineProdkeyAndProdkeyGiveIdenticalStringsWithAnyArgumentsOrNone)
{
    const Operations expected = call(acetRegProdkey, {});
    EXPECT_EQ(call(acetRegMachineProdkey, {}), expected);
    EXPECT_EQ(call(acetRegMachineProdkey, {shortInteger(1), nil()}), expected);
    EXPECT_EQ(call(acetRegProdkey, {text(u"HKEY_LOCAL_MACHINE")}), expected);
}
