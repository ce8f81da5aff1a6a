// How values arrive as nodes and how nodes become values.

#include "tests/host/kernel/LispHostFixture.h"

#include <sstream>

namespace {

// "5003:7 5005:text …" of a list of nodes.
std::string described(const resbuf *node)
{
    std::ostringstream text;
    for (; node; node = node->rbnext) {
        text << node->restype;
        switch (node->restype) {
        case TypeReal:
            text << ':' << node->resval.real;
            break;
        case TypeShort:
            text << ':' << node->resval.shortInteger << '/' << node->resval.longInteger;
            break;
        case TypeLong:
            text << ':' << node->resval.longInteger;
            break;
        case TypeString:
            text << ':' << utf8(node->resval.string);
            break;
        case TypePoint2d:
        case TypePoint3d:
            text << ':' << node->resval.point.x << ',' << node->resval.point.y << ',' << node->resval.point.z;
            break;
        default:
            break;
        }
        text << (node->rbnext ? " " : "");
    }
    return text.str();
}

} // namespace

class LispHostArguments : public LispHostTest
{
protected:
    std::string argumentsOf(const std::string &call)
    {
        std::string found;
        body = [&] {
            resbuf *list = m_host.getArgs();
            found = described(list);
            m_host.releaseRb(list);
            return int(StatusNormal);
        };
        EXPECT_EQ(evaluate(call), "nil") << call;
        return found;
    }
    // The value of a call whose result is set from the nodes that the function builds.
    template <class Build> std::string resultOf(Build build)
    {
        body = [&] {
            resbuf *list = build();
            m_host.retList(list);
            m_host.releaseRb(list);
            return int(StatusNormal);
        };
        return evaluate("(test)");
    }
};

TEST_F(LispHostArguments, arriveAsTypedNodes)
{
    EXPECT_EQ(argumentsOf("(test)"), "");
    EXPECT_EQ(argumentsOf("(test 7 -32768 32767)"), "5003:7/7 5003:-32768/-32768 5003:32767/32767");
    EXPECT_EQ(argumentsOf("(test 32768 -32769 2147483647)"), "5010:32768 5010:-32769 5010:2147483647");
    EXPECT_EQ(argumentsOf("(test 1.5 \"text\" nil T)"), "5001:1.5 5005:text 5019 5021");
    EXPECT_EQ(argumentsOf("(test '(1 2.5) '(1 2 3))"), "5002:1,2.5,0 5009:1,2,3");
    EXPECT_EQ(argumentsOf("(test '(1 2 3 4))"), "5016 5003:1/1 5003:2/2 5003:3/3 5003:4/4 5017");
    EXPECT_EQ(argumentsOf("(test '(1))"), "5016 5003:1/1 5017");
    EXPECT_EQ(argumentsOf("(test '(\"a\" (b . 2)))"), "5016 5005:a 5016 5000 5018 5003:2/2 5017 5017");
    EXPECT_EQ(argumentsOf("(test '(1 . 2))"), "5016 5003:1/1 5018 5003:2/2 5017");
    EXPECT_EQ(argumentsOf("(test 'symbol car)"), "5000 5000");
}

TEST_F(LispHostArguments, narrowFormHasEightBitStrings)
{
    std::string found;
    body = [&] {
        resbuf *list = m_host.getArgsNarrow();
        found = list->resval.narrowString;
        m_host.releaseRbNarrow(list);
        return int(StatusNormal);
    };
    evaluate("(test \"abc\")");
    EXPECT_EQ(found, "abc");
    evaluate("(test \"Z\\U+00FCrich\")"); // in the code page of the system, for its commands
    EXPECT_EQ(QString::fromLocal8Bit(found.c_str()), QStringLiteral("Zürich"));
}

TEST_F(LispHostArguments, listsThatAreNeverClosedAreTheResultItself)
{
    EXPECT_EQ(resultOf([&] { return m_host.newRb(TypeListBegin); }), "nil");
    EXPECT_EQ(resultOf([&] { return m_host.buildList(TypeListBegin, TypeString, u"a", TypeString, u"b", TypeNone); }),
              "(\"a\" \"b\")");
    EXPECT_EQ(resultOf([&] { return m_host.buildList(TypeListBegin, TypeShort, 62, TypeDot, TypeShort, 1, TypeNone); }),
              "(62 . 1)");
}

TEST_F(LispHostArguments, otherSequencesGiveTheListOfTheirItems)
{
    EXPECT_EQ(resultOf([&] {
                  return m_host.buildList(TypeListBegin, TypeShort, 1, TypeListEnd, TypeListBegin, TypeShort, 2,
                                          TypeListEnd, 0);
              }),
              "((1) (2))");
    EXPECT_EQ(resultOf([&] { return m_host.buildList(TypeReal, 1.5, TypeNil, TypeTrue, TypeLong, 70000, 0); }),
              "(1.5 nil T 70000)");
    const LispPoint point{1, 2, 3};
    EXPECT_EQ(resultOf([&] { return m_host.buildList(TypePoint3d, &point, TypePoint2d, &point, 0); }),
              "((1.0 2.0 3.0) (1.0 2.0))");
    EXPECT_EQ(resultOf([]() -> resbuf * { return nullptr; }), "nil");
}

TEST_F(LispHostArguments, prependedNodesFollowTheFirst)
{
    EXPECT_EQ(resultOf([&] {
                  resbuf *list = m_host.newRb(TypeListBegin);
                  std::int32_t last = 2, first = 1;
                  m_host.prependRb(list, TypeLong, &last);
                  m_host.prependRb(list, TypeLong, &first);
                  return list;
              }),
              "(1 2)");
}

TEST_F(LispHostArguments, evaluatedValuesComeAsNodes)
{
    std::string found;
    body = [&] {
        resbuf *value = nullptr;
        const int status = m_host.evaluate(u"(setq hits 1) (list 1.5 \"x\")", &value);
        found = std::to_string(status) + " " + described(value);
        m_host.releaseRb(value);
        return int(StatusNormal);
    };
    evaluate("(test)");
    EXPECT_EQ(found, "5100 5016 5001:1.5 5005:x 5017");
    EXPECT_EQ(evaluate("hits"), "1");
}

TEST_F(LispHostArguments, longTextsAreLentAndComeBackAsTheyAre)
{
    resbuf *node = nullptr;
    body = [&] {
        node = m_host.getArgs();
        m_host.retWStr(node->resval.string);
        m_host.releaseRb(node);
        return StatusNormal;
    };
    EXPECT_EQ(evaluate("(setq long \"0123456789abcdef\") (repeat 10 (setq long (strcat long long)))"
                       "(setq long (substr long 1)) (list (strlen long) (equal (test long) long))"),
              "(16384 T)");
}

TEST_F(LispHostArguments, aLongTextEndsAtANulInIt)
{
    std::u16string text(5000, u'x');
    text[4998] = u'\0';
    m_machine.intern(u"LONG")->value = m_machine.string(text);
    std::size_t length = 0;
    body = [&] {
        length = std::u16string_view(m_host.getArgs()->resval.string).size();
        return StatusNormal;
    };
    evaluate("(test long)");
    EXPECT_EQ(length, 4998U);
}

TEST_F(LispHostArguments, ShortAndLongerTextsAreTheNodesOwnAndCanBeChanged)
{
    lisp::Symbol *variable = m_machine.intern(u"some-text");
    for (const std::size_t length : {0U, 1U, 62U, 63U, 64U, 65U, 1000U}) {
        const std::u16string text(length, u'y');
        variable->value = m_machine.string(text);
        body = [&] {
            resbuf *list = m_host.getArgs();
            EXPECT_NE(list->resval.string, variable->value.asString()->view().data());
            EXPECT_EQ(list->resval.string, text);
            EXPECT_EQ(list->rbnext->resval.string, text); // each node has a text of its own
            if (length > 0)
                list->resval.string[0] = u'z';
            EXPECT_EQ(list->rbnext->resval.string, text);
            m_host.releaseRb(list);
            return int(StatusNormal);
        };
        EXPECT_EQ(evaluate("(test some-text some-text)"), "nil") << length;
        EXPECT_EQ(variable->value.asString()->view(), text);
    }
}
