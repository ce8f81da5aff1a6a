#include "host/lisptest/TestRun.h"

#include <cassert>

namespace lisptest {

namespace {

TestRun *currentRun = nullptr;

} // namespace

TestRun::TestRun()
{
    assert(!currentRun);
    currentRun = this;
}

TestRun::~TestRun()
{
    currentRun = nullptr;
}

TestRun &TestRun::current()
{
    assert(currentRun);
    return *currentRun;
}

void TestRun::check(lisp::Machine &machine, bool holds, std::u16string_view message)
{
    ++m_assertions;
    if (holds)
        return;
    if (!m_failure)
        m_failure = {std::u16string(message), machine.backTrace()};
    lisp::fail(u"assertion failed: " + std::u16string(message));
}

void TestRun::skip(std::u16string_view reason)
{
    m_skipReason = reason;
    lisp::fail(u"test skipped: " + std::u16string(reason));
}

} // namespace lisptest
