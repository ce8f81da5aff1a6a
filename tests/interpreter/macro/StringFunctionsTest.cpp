#include "tests/interpreter/macro/MacroTest.h"

namespace {

class StringFunctions : public MacroTest
{
};

TEST_F(StringFunctions, Arithmetic)
{
    EXPECT_EQ(evaluate(u"$(+,1.5)"), "1.5");
    EXPECT_EQ(evaluate(u"$(-,10,3,2)"), "5");
    EXPECT_EQ(evaluate(u"$(*,2,0.25)"), "0.5");
    EXPECT_EQ(evaluate(u"$(/,1,3)"), "0.33333333");
    EXPECT_EQ(evaluate(u"$(/,1,0)"), "$(/,?\?)");
    EXPECT_EQ(evaluate(u"$(-,0)"), "0");
    EXPECT_EQ(evaluate(u"$(+, 12mm,1e1)"), "22");
}

TEST_F(StringFunctions, Comparisons)
{
    EXPECT_EQ(evaluate(u"$(=,1,1.0)$(!=,1,2)$(<,1,2)$(>,1,2)$(<=,2,2)$(>=,1,2)"), "111010");
    EXPECT_EQ(evaluate(u"$(=,x,1)"), "$(=,?\?)");
    EXPECT_EQ(evaluate(u"$(eq,abc,abc)$(eq,abc,ABC)$(eq,1,1.0)"), "100");
}

TEST_F(StringFunctions, Bits)
{
    EXPECT_EQ(evaluate(u"$(and,7,5) $(or,1,4) $(xor,7,2)"), "5 5 5");
    EXPECT_EQ(evaluate(u"$(and,1e300,1)"), "$(and,?\?)");
}

TEST_F(StringFunctions, Eval)
{
    EXPECT_EQ(evaluate(u"$(eval,\"$(+,1,2)\")"), "3");
    EXPECT_EQ(evaluate(u"$(eval,plain)"), "plain");
}

TEST_F(StringFunctions, Fix)
{
    EXPECT_EQ(evaluate(u"$(fix,2.9) $(fix,-2.9)"), "2 -2");
}

TEST_F(StringFunctions, GetenvAndGetvar)
{
    EXPECT_EQ(evaluate(u"$(getenv,HOME)|$(getenv,NONE)|$(getvar,orthomode)|$(getvar,empty)"), "/home||1|");
    EXPECT_EQ(evaluate(u"$(getvar,nosuch)"), "$(getvar,?\?)");
}

TEST_F(StringFunctions, IfEvaluatesOnlyWhatItChooses)
{
    EXPECT_EQ(evaluate(u"$(if,1,yes)$(if,0,yes)$(if,0,yes,no)"), "yesno");
    EXPECT_EQ(evaluate(u"$(if,0,$(foo),right)"), "right");
    EXPECT_EQ(evaluate(u"$(if,x,yes)"), "$(if,?\?)");
}

TEST_F(StringFunctions, Index)
{
    EXPECT_EQ(evaluate(u"$(index,1,$(getvar,dimpost))$(index,0,\"a,b\")$(index,5,\"a,b\")"), "ba");
    EXPECT_EQ(evaluate(u"$(index,-1,a)"), "$(index,?\?)");
}

TEST_F(StringFunctions, Linelen)
{
    EXPECT_EQ(evaluate(u"$(linelen)"), "240");
    EXPECT_EQ(evaluate(u"$(linelen,1)"), "$(linelen,?\?)");
}

TEST_F(StringFunctions, Nth)
{
    EXPECT_EQ(evaluate(u"$(nth,0,a,b)$(nth,1,a,b)$(nth,2,a,b)"), "ab");
    EXPECT_EQ(evaluate(u"$(nth,x,a)"), "$(nth,?\?)");
}

TEST_F(StringFunctions, AnglesAndDistances)
{
    EXPECT_EQ(evaluate(u"$(rtos,2.5) $(rtos,17.5,4,2) $(rtos,2.5,2,1)"), "2.5000 1'-5 1/2\" 2.5");
    EXPECT_EQ(evaluate(u"$(angtos,3.14159265358979) $(angtos,0.5,3,4)"), "180 0.5000r");
    EXPECT_EQ(evaluate(u"$(rtos,x)$(rtos,1,9)$(rtos,1,2,-1)$(angtos,1,7)"),
              "$(rtos,?\?)$(rtos,?\?)$(rtos,?\?)$(angtos,?\?)");
    EXPECT_EQ(evaluate(u"$(rtos,1,2,99)"), "$(rtos,?\?)");
}

TEST_F(StringFunctions, Texts)
{
    EXPECT_EQ(evaluate(u"$(strlen,abc)$(strlen,)"), "30");
    EXPECT_EQ(evaluate(u"$(substr,abcdef,2,3)$(substr,abc,3)$(substr,abc,9)"), "bcdc");
    EXPECT_EQ(evaluate(u"$(substr,abc,0)$(substr,abc,1,-1)"), "$(substr,?\?)$(substr,?\?)");
    EXPECT_EQ(evaluate(u"$(upper,a\u00e9)"), "A\u00c9");
}

TEST_F(StringFunctions, EdtimeOfZeroIsNow)
{
    EXPECT_EQ(evaluate(u"$(edtime,0,YYYY)"), evaluate(u"$(edtime,2448806.5,YYYY)"));
    EXPECT_EQ(evaluate(u"$(edtime,x,YYYY)"), "$(edtime,?\?)");
}

} // namespace
