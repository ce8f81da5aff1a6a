#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

// Cases that every implementation of a group of Win32 calls must satisfy, the system's own on Windows and the platform
// library elsewhere. The sources of a group compile for both and use nothing but what those calls document.
namespace conformance {

class Case
{
public:
    Case(std::string name, std::function<void(Case &)> action) : m_name(std::move(name)), m_action(std::move(action)) {}

    void expect(const char *what, long long expected, long long actual)
    {
        ++m_expectations;
        if (expected != actual)
            fail(std::string(what) + ": expected " + std::to_string(expected) + ", not " + std::to_string(actual));
    }
    void expect(const char *what, const std::string &expected, const std::string &actual)
    {
        ++m_expectations;
        if (expected != actual)
            fail(std::string(what) + ": expected " + expected + ", not " + actual);
    }

    // A case that expects nothing has failed, too.
    bool run()
    {
        m_action(*this);
        if (m_expectations == 0)
            fail("nothing was expected");
        return m_holds;
    }

private:
    void fail(const std::string &words)
    {
        std::printf("FAILED %s\n    %s\n", m_name.c_str(), words.c_str());
        m_holds = false;
    }

    std::string m_name;
    std::function<void(Case &)> m_action;
    int m_expectations = 0;
    bool m_holds = true;
};

using Cases = std::vector<Case>;

// The exit status of a program of cases.
inline int runCases(Cases cases)
{
    std::size_t failed = 0;
    for (Case &one : cases)
        failed += one.run() ? 0 : 1;
    std::printf("%zu cases, %zu failed\n", cases.size(), failed);
    return failed == 0 && !cases.empty() ? 0 : 1;
}

} // namespace conformance
