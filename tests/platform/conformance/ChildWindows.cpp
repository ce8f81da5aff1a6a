#include "tests/platform/conformance/Child.h"

#include <stdexcept>

Child::Child(const std::vector<std::string> &arguments)
{
    std::u16string line = u"\"" + testchildPath() + u"\"";
    for (const std::string &argument : arguments)
        line += u" " + std::u16string(argument.begin(), argument.end());
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(nullptr, windowsText(line.data()), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &information))
        throw std::runtime_error("cannot start the test's child");
    CloseHandle(information.hThread);
    m_process = information.hProcess;
    m_id = information.dwProcessId;
}

Child::~Child()
{
    TerminateProcess(m_process, 0);
    WaitForSingleObject(m_process, INFINITE);
    CloseHandle(m_process);
}
