#include "tests/interpreter/macro/MacroTest.h"

namespace {

using StringExpression = MacroTest;

TEST_F(StringExpression, TextOutsideOfCallsStays)
{
    EXPECT_EQ(evaluate(u""), "");
    EXPECT_EQ(evaluate(u"ortho \"is\" $ (1)"), "ortho \"is\" $ (1)");
    EXPECT_EQ(evaluate(u"<$(+,1,2)> and $(-,1,2)."), "<3> and -1.");
}

TEST_F(StringExpression, CallsNest)
{
    EXPECT_EQ(evaluate(u"$(if,$(=,$(getvar,orthomode),1),on,off)"), "on");
    EXPECT_EQ(evaluate(u"$(+,$(*,2,3),$(/,9,3))"), "9");
}

TEST_F(StringExpression, QuotesKeepCommasParenthesesAndCalls)
{
    EXPECT_EQ(evaluate(u"$(upper,\"a,b)\")"), "A,B)");
    EXPECT_EQ(evaluate(u"$(strlen,\"$(+,1,2)\")"), "8");
    EXPECT_EQ(evaluate(u"$(upper,\"a\"\"b\")"), "A\"B");
    EXPECT_EQ(evaluate(u"$(upper,a\"b,\"c)"), "AB,C");
}

TEST_F(StringExpression, WhatIsNotClosedShowsADollarAndAQuestionMark)
{
    EXPECT_EQ(evaluate(u"a $(+,1,2"), "a $?");
    EXPECT_EQ(evaluate(u"$(upper,\"a) b"), "$?");
    EXPECT_EQ(evaluate(u"$(+,1,$(+,2,3)"), "$?");
    EXPECT_EQ(evaluate(u"$("), "$?");
}

TEST_F(StringExpression, AnUnknownFunctionIsNamed)
{
    EXPECT_EQ(evaluate(u"$(foo,1) $(+,1,1)"), "$(foo)?? 2");
    EXPECT_EQ(evaluate(u"$()"), "$()??");
}

TEST_F(StringExpression, ArgumentsThatDoNotSuitAreShown)
{
    EXPECT_EQ(evaluate(u"$(+,a,1)"), "$(+,?\?)");
    EXPECT_EQ(evaluate(u"$(strlen)"), "$(strlen,?\?)");
    EXPECT_EQ(evaluate(u"$(eq,1,2,3)"), "$(eq,?\?)");
    EXPECT_EQ(evaluate(u"$(+,1,2,3,4,5,6,7,8,9)"), "45");
    EXPECT_EQ(evaluate(u"$(+,1,2,3,4,5,6,7,8,9,10)"), "$(+,?\?)");
}

TEST_F(StringExpression, AResultThatIsTooLongIsCut)
{
    const std::size_t longest = lisp::StringExpression::LongestResult;
    const std::u16string text(longest, u'x');
    EXPECT_EQ(evaluate(text).size(), longest);
    const std::string cut = evaluate(text + u"y$(+,1,2)");
    EXPECT_EQ(cut, std::string(longest, 'x') + "$(++)");
}

TEST_F(StringExpression, DeepNestingEnds)
{
    std::u16string deep = u"1";
    for (int i = 0; i < 2000; ++i)
        deep = u"$(fix," + deep;
    EXPECT_EQ(evaluate(deep), "$?");
    deep = u"1";
    for (int i = 0; i < 150; ++i)
        deep = u"$(fix," + deep + u")";
    EXPECT_NE(evaluate(deep).find("??"), std::string::npos);
}

TEST_F(StringExpression, FunctionsHaveNoCase)
{
    EXPECT_EQ(evaluate(u"$(UPPER,a)$( Upper ,b)"), "AB");
}

} // namespace
