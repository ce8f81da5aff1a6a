#include "platform/Processes.h"
#include "platform/LastError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>

#include <gtest/gtest.h>

namespace {

HANDLE handleOf(std::intptr_t number)
{
    return reinterpret_cast<HANDLE>(number);
}

class Processes : public testing::Test
{
protected:
    ~Processes() override
    {
        for (const HANDLE handle : m_handles)
            CloseHandle(handle);
        m_process.kill();
        m_process.waitForFinished();
    }

    void start(const QStringList &arguments)
    {
        m_process.start(QStringLiteral(TEST_CHILD), arguments);
        ASSERT_TRUE(m_process.waitForStarted());
    }
    void startLongOne() { start({QStringLiteral("-"), QStringLiteral("wait:20000")}); }
    HANDLE open(DWORD access)
    {
        const HANDLE handle = OpenProcess(access, FALSE, static_cast<DWORD>(m_process.processId()));
        m_handles.push_back(handle);
        return handle;
    }
    static DWORD exitCodeOf(HANDLE handle)
    {
        DWORD exitCode = 12345;
        EXPECT_EQ(GetExitCodeProcess(handle, &exitCode), TRUE);
        return exitCode;
    }

    QProcess m_process;
    std::vector<HANDLE> m_handles;
};

} // namespace

TEST_F(Processes, HandlesAreMultiplesOf4AndTheLowestTwoBitsDoNotCount)
{
    startLongOne();
    const HANDLE handle = open(SYNCHRONIZE);
    ASSERT_NE(handle, nullptr);
    const auto number = reinterpret_cast<std::intptr_t>(handle);
    EXPECT_EQ(number % 4, 0);
    EXPECT_NE(open(SYNCHRONIZE), handle);
    EXPECT_EQ(WaitForSingleObject(handleOf(number + 3), 0), WAIT_TIMEOUT);
}

TEST_F(Processes, AProcessThatIsNotThereCannotBeOpened)
{
    for (const DWORD process : {0U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        SetLastError(0);
        EXPECT_EQ(OpenProcess(SYNCHRONIZE, FALSE, process), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER) << process;
    }
}

TEST_F(Processes, AWaitTakesItsTime)
{
    startLongOne();
    const HANDLE handle = open(SYNCHRONIZE);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(WaitForSingleObject(handle, 50), WAIT_TIMEOUT);
    EXPECT_GE(timer.elapsed(), 50);
}

TEST_F(Processes, AWaitWithoutLimitEndsWithTheProcess)
{
    start({QStringLiteral("-"), QStringLiteral("wait:100")});
    EXPECT_EQ(WaitForSingleObject(open(SYNCHRONIZE), INFINITE), WAIT_OBJECT_0);
}

TEST_F(Processes, TheExitCodeIs259WhileTheProcessRuns)
{
    startLongOne();
    EXPECT_EQ(exitCodeOf(open(PROCESS_QUERY_INFORMATION)), STILL_ACTIVE);
    EXPECT_EQ(exitCodeOf(open(PROCESS_QUERY_LIMITED_INFORMATION)), STILL_ACTIVE);
}

TEST_F(Processes, TheExitCodeOfAChildIsItsOwn)
{
    start({QStringLiteral("-"), QStringLiteral("exit:7")});
    const HANDLE handle = open(SYNCHRONIZE | PROCESS_QUERY_INFORMATION);
    ASSERT_EQ(WaitForSingleObject(handle, 10000), WAIT_OBJECT_0);
    EXPECT_EQ(exitCodeOf(handle), 7U);
}

TEST_F(Processes, AProcessThatASignalEndedHas128AndItsNumber)
{
    startLongOne();
    const HANDLE handle = open(SYNCHRONIZE | PROCESS_QUERY_INFORMATION);
    ::kill(static_cast<pid_t>(m_process.processId()), SIGTERM);
    ASSERT_EQ(WaitForSingleObject(handle, 10000), WAIT_OBJECT_0);
    EXPECT_EQ(exitCodeOf(handle), 128U + SIGTERM);
}

TEST_F(Processes, TerminateEndsAProcessWithTheCodeThatIsGiven)
{
    startLongOne();
    const HANDLE handle = open(PROCESS_TERMINATE | SYNCHRONIZE | PROCESS_QUERY_INFORMATION);
    EXPECT_EQ(TerminateProcess(handle, 99), TRUE);
    ASSERT_EQ(WaitForSingleObject(handle, 10000), WAIT_OBJECT_0);
    EXPECT_EQ(exitCodeOf(handle), 99U);
    EXPECT_EQ(TerminateProcess(handle, 1), FALSE); // it has ended
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(Processes, EachCallNeedsItsRight)
{
    startLongOne();
    const HANDLE toWait = open(SYNCHRONIZE), toTerminate = open(PROCESS_TERMINATE);
    DWORD exitCode = 0;
    SetLastError(0);
    EXPECT_EQ(TerminateProcess(toWait, 0), FALSE);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    SetLastError(0);
    EXPECT_EQ(GetExitCodeProcess(toWait, &exitCode), FALSE);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    SetLastError(0);
    EXPECT_EQ(WaitForSingleObject(toTerminate, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(m_process.state(), QProcess::Running);
}

TEST_F(Processes, WhatIsNoHandleIsRefused)
{
    DWORD exitCode = 0;
    for (const std::intptr_t number : {0, 3, 100000}) {
        SetLastError(0);
        EXPECT_EQ(WaitForSingleObject(handleOf(number), 0), WAIT_FAILED);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(GetExitCodeProcess(handleOf(number), &exitCode), FALSE);
        EXPECT_EQ(TerminateProcess(handleOf(number), 0), FALSE);
        EXPECT_EQ(CloseHandle(handleOf(number)), FALSE);
    }
}

TEST_F(Processes, AClosedHandleIsNoneAnyMoreAndItsNumberIsGivenAgain)
{
    startLongOne();
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(m_process.processId()));
    EXPECT_EQ(CloseHandle(handle), TRUE);
    EXPECT_EQ(CloseHandle(handle), FALSE);
    EXPECT_EQ(open(SYNCHRONIZE), handle);
}

TEST_F(Processes, TheCodeOfATerminationIsKnownToTheOtherHandles)
{
    startLongOne();
    const HANDLE first = open(PROCESS_TERMINATE), second = open(SYNCHRONIZE | PROCESS_QUERY_INFORMATION);
    EXPECT_EQ(TerminateProcess(first, 99), TRUE);
    ASSERT_EQ(WaitForSingleObject(second, 10000), WAIT_OBJECT_0);
    EXPECT_EQ(exitCodeOf(second), 99U);
}

TEST_F(Processes, TheExitCodeStaysKnownWhenTheChildHasBeenTakenNoteOf)
{
    start({QStringLiteral("-"), QStringLiteral("exit:7")});
    const HANDLE handle = open(SYNCHRONIZE | PROCESS_QUERY_INFORMATION);
    ASSERT_EQ(WaitForSingleObject(handle, 10000), WAIT_OBJECT_0);
    m_process.waitForFinished();
    EXPECT_EQ(exitCodeOf(handle), 7U);
    EXPECT_EQ(WaitForSingleObject(handle, INFINITE), WAIT_OBJECT_0);
}

TEST_F(Processes, HandlesOfProcessesThatHaveEndedKeepNoFilesOpen)
{
    const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).entryList().size(); };
    start({QStringLiteral("-")});
    WaitForSingleObject(open(SYNCHRONIZE), INFINITE); // what the first one opens for good
    m_process.waitForFinished();
    const auto before = openFiles();
    for (int i = 0; i < 5; ++i) {
        start({QStringLiteral("-")});
        WaitForSingleObject(open(SYNCHRONIZE), INFINITE);
        m_process.waitForFinished();
    }
    EXPECT_EQ(openFiles(), before);
}

// As programs do that ask again and again whether a process still runs: those handles stay open. Searching for a number
// that is free would make this a matter of minutes.
TEST_F(Processes, OpeningTakesNoLongerWhenManyHandlesAreOpen)
{
    startLongOne();
    const auto timeOf = [this](int count) {
        QElapsedTimer timer;
        timer.start();
        for (int opened = 0; opened < count; ++opened)
            open(SYNCHRONIZE);
        return timer.nsecsElapsed();
    };
    const qint64 first = timeOf(2000);
    timeOf(10'000);
    EXPECT_LT(timeOf(2000), 8 * first + 200'000'000);
}

TEST_F(Processes, TheCurrentProcessHasAHandleThatIsAlwaysThere)
{
    EXPECT_EQ(GetCurrentProcess(), handleOf(-1));
    EXPECT_EQ(exitCodeOf(GetCurrentProcess()), STILL_ACTIVE);
    EXPECT_EQ(WaitForSingleObject(GetCurrentProcess(), 10), WAIT_TIMEOUT);
    EXPECT_EQ(CloseHandle(GetCurrentProcess()), TRUE);
    EXPECT_EQ(GetCurrentProcessId(), static_cast<DWORD>(::getpid()));
}

TEST(ProcessesDeathTest, TerminatingTheCurrentProcessEndsIt)
{
    EXPECT_EXIT(TerminateProcess(GetCurrentProcess(), 5), testing::ExitedWithCode(5), "");
}
