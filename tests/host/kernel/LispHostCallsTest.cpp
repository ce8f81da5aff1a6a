// Calls of module functions: results, errors, nesting.

#include "tests/host/kernel/LispHostFixture.h"

#include <array>

using LispHostCalls = LispHostTest;

TEST_F(LispHostCalls, theResultIsNilWhenNoneIsSet)
{
    body = [] { return int(StatusNormal); };
    EXPECT_EQ(evaluate("(test 1 2)"), "nil");
}

TEST_F(LispHostCalls, resultsOfEachKind)
{
    struct Case
    {
        std::function<int()> setResult;
        const char *expected;
    };
    const std::array<Case, 8> cases = {{
        {[&] { return m_host.retInt(-7); }, "-7"},
        {[&] { return m_host.retReal(2.5); }, "2.5"},
        {[&] { return m_host.retNil(); }, "nil"},
        {[&] { return m_host.retT(); }, "T"},
        {[&] { return m_host.retStr("plain"); }, "\"plain\""},
        {[&] { return m_host.retStr("gr\xF6\xDF"); }, "\"größ\""},
        {[&] { return m_host.retWStr(u"größ"); }, "\"größ\""},
        {[&] {
             resbuf *list = m_host.buildList(TypeListBegin, TypeShort, 1, TypeListEnd, 0);
             const int status = m_host.retVal(list);
             m_host.releaseRb(list);
             return status;
         },
         "(1)"},
    }};
    for (const Case &each : cases) {
        int status = 0;
        body = [&] {
            status = each.setResult();
            return int(StatusNormal);
        };
        EXPECT_EQ(evaluate("(test)"), each.expected);
        EXPECT_EQ(status, StatusNormal);
    }
}

TEST_F(LispHostCalls, theErrorStatusIsALispError)
{
    body = [] { return int(StatusError); };
    EXPECT_EQ(evaluate("(test)"), "error: error in TEST");
    EXPECT_EQ(evaluate("(vl-catch-all-error-p (vl-catch-all-apply 'test))"), "T");
}

TEST_F(LispHostCalls, evaluationErrorsBecomeAStatusWithoutCallingTheProgramsHandler)
{
    int status = 0;
    body = [&] {
        resbuf *value = nullptr;
        status = m_host.evaluate(u"(car 1)", &value);
        EXPECT_EQ(value, nullptr);
        return int(StatusNormal);
    };
    EXPECT_EQ(evaluate("(defun *error* (m) (princ m)) (test)"), "nil");
    EXPECT_EQ(status, StatusError);
    EXPECT_EQ(printedText(), "");
}

TEST_F(LispHostCalls, nestedCallsHaveArgumentsAndResultsOfTheirOwn)
{
    int depth = 0;
    body = [&] {
        resbuf *list = m_host.getArgs();
        const int argument = list->resval.longInteger;
        if (++depth == 1) {
            resbuf *inner = nullptr;
            m_host.evaluate(u"(test 2)", &inner);
            EXPECT_EQ(inner->resval.longInteger, 20);
            m_host.releaseRb(inner);
        }
        m_host.releaseRb(list);
        return m_host.retInt(argument * 10);
    };
    EXPECT_EQ(evaluate("(test 1)"), "10");
}

TEST_F(LispHostCalls, resultsSurviveACollectionBeforeTheCallEnds)
{
    body = [&] {
        m_host.retWStr(u"kept through the collection");
        return m_host.evaluate(u"(gc) (repeat 1000 (strcat \"a\" \"b\"))", nullptr);
    };
    EXPECT_EQ(evaluate("(test)"), "\"kept through the collection\"");
}

TEST_F(LispHostCalls, functionsCanBeDefinedAndRemoved)
{
    EXPECT_EQ(evaluate("(list (type test) (boundp 'test))"), "(EXRXSUBR T)");
    EXPECT_EQ(m_host.undefun(u"TEST"), StatusNormal);
    EXPECT_EQ(m_host.undefun(u"TEST"), StatusError);
    EXPECT_EQ(m_host.undefun(u"car"), StatusError);
    EXPECT_EQ(evaluate("(test)"), "error: no function definition: TEST");
    EXPECT_EQ(evaluate("(car '(1))"), "1");
}

TEST_F(LispHostCalls, promptFormatsAndPrints)
{
    EXPECT_EQ(m_host.prompt(u"\nError: %s is %d%%.", u"größ", 5), StatusNormal);
    EXPECT_EQ(printedText(), "\nError: größ is 5%.");
}

TEST_F(LispHostCalls, outsideOfACallThereIsNothingToAskFor)
{
    EXPECT_EQ(m_host.getArgs(), nullptr);
    EXPECT_EQ(m_host.newRb(TypeShort), nullptr);
    EXPECT_EQ(m_host.buildList(TypeShort, 1, 0), nullptr);
    EXPECT_EQ(m_host.retInt(1), StatusError);
    m_host.releaseRb(nullptr);
}

TEST_F(LispHostCalls, smallServices)
{
    EXPECT_EQ(m_host.wcMatch(u"name1", u"x*,n*#"), StatusNormal);
    EXPECT_EQ(m_host.wcMatch(u"name", u"n*#"), StatusError);
    const LispPoint from{0, 0, 0}, to{0, -2, 0};
    EXPECT_DOUBLE_EQ(m_host.angle(&from, &to), 4.71238898038469);
    char16_t path[FoundPathUnits];
    EXPECT_EQ(m_host.findFile(u"no such file", path), StatusError);
    char16_t value[4];
    qputenv("KERNEL_TEST_VALUE", "abcdef");
    EXPECT_EQ(m_host.getEnvVar("KERNEL_TEST_VALUE", 0, 0, 4, value), StatusNormal);
    EXPECT_EQ(utf8(value), "abc");
    EXPECT_EQ(m_host.getEnvVar("KERNEL_TEST_MISSING", 0, 0, 4, value), StatusError);
}

TEST_F(LispHostCalls, requestsToThePerson)
{
    m_services.answers = AnswersFile::fromText(u"12\ntrue\nlong text\n", QString());
    std::int32_t number = 0;
    char16_t text[5] = u"";
    EXPECT_EQ(m_host.initGet(6, u"Truecolor"), StatusNormal);
    EXPECT_EQ(m_host.getInt(u"Color: ", &number), StatusNormal);
    EXPECT_EQ(number, 12);
    m_host.initGet(6, u"TRUecolor");
    EXPECT_EQ(m_host.getInt(u"Color: ", &number), StatusKeyword);
    EXPECT_EQ(m_host.getInput(text, 5), StatusNormal);
    EXPECT_EQ(utf8(text), "TRUe"); // cut to the buffer
    EXPECT_EQ(m_host.getString(1, u"Name: ", text, 5), StatusNormal);
    EXPECT_EQ(utf8(text), "long");
    EXPECT_EQ(m_host.getString(1, u"Name: ", text, 5), StatusCancelled);
    EXPECT_EQ(m_host.getInt(u"Color: ", &number), StatusCancelled);
}

TEST_F(LispHostCalls, systemVariables)
{
    resbuf node{};
    EXPECT_EQ(m_host.getVar(u"CMDECHO", &node), StatusNormal);
    EXPECT_EQ(node.restype, TypeShort);
    EXPECT_EQ(node.resval.longInteger, 1);
    node.resval.longInteger = 0;
    EXPECT_EQ(m_host.setVar(u"cmdecho", &node), StatusNormal);
    EXPECT_EQ(m_host.getVar(u"CMDECHO", &node), StatusNormal);
    EXPECT_EQ(node.resval.longInteger, 0);
    EXPECT_EQ(m_host.setVar(u"CLAYER", &node), StatusError);
    EXPECT_EQ(m_host.getVar(u"NOSUCH", &node), StatusError);
    EXPECT_EQ(m_host.getVar(u"CMDECHO", nullptr), StatusError);
    EXPECT_EQ(m_host.setVar(u"CMDECHO", nullptr), StatusError);
}

TEST_F(LispHostCalls, servicesThatThisHostLacksFail)
{
    LispName name{};
    LispPoint point{};
    EXPECT_EQ(m_host.regApp(u"APP"), StatusError);
    EXPECT_EQ(m_host.progressSet(5), 0);
    EXPECT_EQ(m_host.entGet(&name, true), nullptr);
    EXPECT_EQ(m_host.entMod(nullptr), StatusError);
    EXPECT_EQ(m_host.getEntityExtents(&name, &point, &point), StatusError);
    EXPECT_EQ(m_host.namedObjDict(&name), StatusError);
}
