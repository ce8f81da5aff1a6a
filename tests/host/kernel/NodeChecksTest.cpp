// What the host notices about a module that handles nodes wrongly. Only builds with assertions look; the reclaiming of
// what was left behind is there always.

#include "tests/host/kernel/LispHostFixture.h"

#if defined(__SANITIZE_ADDRESS__)
#define ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ADDRESS_SANITIZER
#endif
#endif

using NodeChecks = LispHostTest;

TEST_F(NodeChecks, nodesThatWereNotReleasedGoBackToThePool)
{
    body = [&] {
        m_host.getArgs();
        m_host.newRb(TypeShort);
        m_host.buildList(TypeString, u"left behind", 0);
        return int(StatusNormal);
    };
    evaluate("(repeat 1000 (test \"a\" \"b\"))");
    EXPECT_EQ(m_host.liveNodes(), 0u);
}

TEST_F(NodeChecks, aReleasedTailLeavesTheHeadToTheFrame)
{
    body = [&] {
        resbuf *list = m_host.getArgs();
        resbuf *tail = std::exchange(list->rbnext, nullptr);
        m_host.releaseRb(tail);
        EXPECT_EQ(list->resval.longInteger, 1);
        return int(StatusNormal);
    };
    EXPECT_EQ(evaluate("(test 1 \"two\" 3)"), "nil");
    EXPECT_EQ(m_host.liveNodes(), 0u);
}

TEST_F(NodeChecks, aSecondResultMayFollowNil)
{
    body = [&] {
        m_host.retNil();
        return m_host.retT();
    };
    EXPECT_EQ(evaluate("(test)"), "T");
}

#ifndef NDEBUG

using NodeChecksDeathTest = LispHostTest;

TEST_F(NodeChecksDeathTest, doubleRelease)
{
    body = [&] {
        resbuf *list = m_host.getArgs();
        m_host.releaseRb(list);
        m_host.releaseRb(list);
        return int(StatusNormal);
    };
    EXPECT_DEATH(evaluate("(test 1)"), "released twice");
}

TEST_F(NodeChecksDeathTest, foreignNode)
{
    body = [&] {
        resbuf node{};
        m_host.releaseRb(&node);
        return int(StatusNormal);
    };
    EXPECT_DEATH(evaluate("(test)"), "never gave");
}

TEST_F(NodeChecksDeathTest, nodeOfAnotherCall)
{
    resbuf *outer = nullptr;
    body = [&] {
        if (outer) {
            m_host.releaseRb(outer);
            return int(StatusNormal);
        }
        outer = m_host.getArgs();
        return m_host.evaluate(u"(test)", nullptr);
    };
    EXPECT_DEATH(evaluate("(test 1)"), "another call");
}

TEST_F(NodeChecksDeathTest, writeAfterRelease)
{
    body = [&] {
        resbuf *node = m_host.newRb(TypeShort);
        m_host.releaseRb(node);
        node->resval.longInteger = 5;
        m_host.newRb(TypeShort);
        return int(StatusNormal);
    };
    EXPECT_DEATH(evaluate("(test)"), "after its release|use-after-poison");
}

TEST_F(NodeChecksDeathTest, secondResult)
{
    body = [&] {
        m_host.retInt(1);
        return m_host.retT();
    };
    EXPECT_DEATH(evaluate("(test)"), "second result");
}

TEST_F(NodeChecksDeathTest, changeOfALentText)
{
    body = [&] {
        resbuf *node = m_host.getArgs();
        node->resval.string[0] = u'y';
        m_host.releaseRb(node);
        return int(StatusNormal);
    };
    evaluate("(setq long \"x\") (repeat 13 (setq long (strcat long long)))");
    EXPECT_DEATH(evaluate("(test (substr long 1))"), "lent was changed");
}

#endif

#ifdef ADDRESS_SANITIZER
TEST_F(NodeChecksDeathTest, readAfterRelease)
{
    body = [&] {
        resbuf *node = m_host.newRb(TypeShort);
        m_host.releaseRb(node);
        return int(node->resval.shortInteger);
    };
    EXPECT_DEATH(evaluate("(test)"), "use-after-poison");
}
#endif
