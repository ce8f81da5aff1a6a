// Handles of processes, held to what the system of Windows does with them: on Windows this file tests the system
// itself.

#include "platform/Processes.h"
#include "tests/platform/conformance/Child.h"
#include "tests/platform/conformance/Outcome.h"

#include <gtest/gtest.h>

namespace {

constexpr std::int64_t Failed = static_cast<std::int64_t>(WAIT_FAILED);
const std::vector<std::string> longRun = {"-", "wait:20000"};

HANDLE handleOf(std::intptr_t number)
{
    return reinterpret_cast<HANDLE>(number);
}

std::intptr_t numberOf(HANDLE handle)
{
    return reinterpret_cast<std::intptr_t>(handle);
}

struct Call
{
    const char *name;
    std::int64_t (*make)(HANDLE handle);
    std::int64_t failure;
};

DWORD exitCode = 0;

const Call waiting = {"Wait", [](HANDLE handle) { return std::int64_t{WaitForSingleObject(handle, 0)}; }, Failed};
const Call querying = {"ExitCode", [](HANDLE handle) { return std::int64_t{GetExitCodeProcess(handle, &exitCode)}; },
                       0};
const Call terminating = {"Terminate", [](HANDLE handle) { return std::int64_t{TerminateProcess(handle, 9)}; }, 0};
const Call closing = {"Close", [](HANDLE handle) { return std::int64_t{CloseHandle(handle)}; }, 0};

} // namespace

// Of a process that runs, and opened with these rights.
struct RightsCase
{
    const char *name;
    DWORD access;
    Call call;
    Outcome expected;
};

void PrintTo(const RightsCase &row, std::ostream *stream)
{
    *stream << row.name << row.call.name;
}

namespace {

constexpr DWORD VirtualMemoryRead = 0x0010;
constexpr DWORD SetInformation = 0x0200;
const Outcome denied = {0, ERROR_ACCESS_DENIED};
const Outcome waitDenied = {Failed, ERROR_ACCESS_DENIED};
const Outcome granted = {TRUE, 0};
const Outcome runs = {WAIT_TIMEOUT, 0};

const RightsCase rightsCases[] = {
    {"Terminate", PROCESS_TERMINATE, waiting, waitDenied},
    {"Terminate", PROCESS_TERMINATE, querying, denied},
    {"Terminate", PROCESS_TERMINATE, terminating, granted},
    {"Synchronize", SYNCHRONIZE, waiting, runs},
    {"Synchronize", SYNCHRONIZE, querying, denied},
    {"Synchronize", SYNCHRONIZE, terminating, denied},
    {"Query", PROCESS_QUERY_INFORMATION, waiting, waitDenied},
    {"Query", PROCESS_QUERY_INFORMATION, querying, granted},
    {"Query", PROCESS_QUERY_INFORMATION, terminating, denied},
    {"QueryLimited", PROCESS_QUERY_LIMITED_INFORMATION, waiting, waitDenied},
    {"QueryLimited", PROCESS_QUERY_LIMITED_INFORMATION, querying, granted},
    {"QueryLimited", PROCESS_QUERY_LIMITED_INFORMATION, terminating, denied},
    {"ReadMemory", VirtualMemoryRead, waiting, waitDenied},
    {"ReadMemory", VirtualMemoryRead, querying, denied},
    {"ReadMemory", VirtualMemoryRead, terminating, denied},
    {"SetInformation", SetInformation, querying, denied},
    {"SetInformation", SetInformation, terminating, denied},
    {"SynchronizeAndQuery", SYNCHRONIZE | PROCESS_QUERY_INFORMATION, waiting, runs},
    {"SynchronizeAndQuery", SYNCHRONIZE | PROCESS_QUERY_INFORMATION, querying, granted},
    {"SynchronizeAndQuery", SYNCHRONIZE | PROCESS_QUERY_INFORMATION, terminating, denied},
    {"SynchronizeAndTerminate", SYNCHRONIZE | PROCESS_TERMINATE, waiting, runs},
    {"SynchronizeAndTerminate", SYNCHRONIZE | PROCESS_TERMINATE, querying, denied},
    {"SynchronizeAndTerminate", SYNCHRONIZE | PROCESS_TERMINATE, terminating, granted},
    {"All", PROCESS_ALL_ACCESS, waiting, runs},
    {"All", PROCESS_ALL_ACCESS, querying, granted},
    {"All", PROCESS_ALL_ACCESS, terminating, granted},
    {"Maximum", MAXIMUM_ALLOWED, waiting, runs},
    {"Maximum", MAXIMUM_ALLOWED, querying, granted},
    {"Maximum", MAXIMUM_ALLOWED, terminating, granted},
    {"GenericAll", GENERIC_ALL, waiting, runs},
    {"GenericAll", GENERIC_ALL, querying, granted},
    {"GenericAll", GENERIC_ALL, terminating, granted},
    {"GenericRead", GENERIC_READ, querying, granted},
    {"GenericRead", GENERIC_READ, waiting, waitDenied},
    {"GenericRead", GENERIC_READ, terminating, denied},
    {"GenericExecute", GENERIC_EXECUTE, querying, granted},
    {"GenericExecute", GENERIC_EXECUTE, waiting, runs},
    {"GenericExecute", GENERIC_EXECUTE, terminating, granted},
    {"GenericWrite", GENERIC_WRITE, querying, denied},
    {"GenericWrite", GENERIC_WRITE, waiting, waitDenied},
    {"GenericWrite", GENERIC_WRITE, terminating, denied},
};

} // namespace

class RightsConformance : public testing::TestWithParam<RightsCase>
{
};

// A number that is no handle.
struct NumberCase
{
    const char *name;
    std::intptr_t number;
    Call call;
};

void PrintTo(const NumberCase &row, std::ostream *stream)
{
    *stream << row.name << row.call.name;
}

namespace {

const NumberCase numberCases[] = {
    {"Null", 0, waiting},           {"Null", 0, querying},           {"Null", 0, terminating},
    {"Null", 0, closing},           {"Three", 3, waiting},           {"Three", 3, querying},
    {"Three", 3, terminating},      {"Three", 3, closing},           {"Large", 100000, waiting},
    {"Large", 100000, querying},    {"Large", 100000, terminating},  {"Large", 100000, closing},
    {"Most", 0x7FFC, waiting},      {"Most", 0x7FFC, querying},      {"Most", 0x7FFC, terminating},
    {"Most", 0x7FFC, closing},      {"Least", -32768, waiting},      {"Least", -32768, querying},
    {"Least", -32768, terminating}, {"Least", -32768, closing},      {"Minus100", -100, waiting},
    {"Minus100", -100, querying},   {"Minus100", -100, terminating}, {"Minus100", -100, closing},
};

} // namespace

class NumberConformance : public testing::TestWithParam<NumberCase>
{
};

struct ExitCase
{
    const char *name;
    std::string argument;
    DWORD exitCode;
};

void PrintTo(const ExitCase &row, std::ostream *stream)
{
    *stream << row.name;
}

class ExitConformance : public testing::TestWithParam<ExitCase>
{
};

class TerminationConformance : public testing::TestWithParam<DWORD>
{
};

class OpenConformance : public testing::TestWithParam<DWORD>
{
};

class ProcessConformance : public testing::Test
{
protected:
    HANDLE open(DWORD access) { return OpenProcess(access, FALSE, m_child.id()); }

    Child m_child{longRun};
};

TEST_P(RightsConformance, OfAProcessThatRuns)
{
    const Child child(longRun);
    const HANDLE handle = OpenProcess(GetParam().access, FALSE, child.id());
    ASSERT_NE(handle, nullptr) << GetLastError();
    EXPECT_EQ(outcomeOf([&] { return GetParam().call.make(handle); }), GetParam().expected);
    EXPECT_EQ(CloseHandle(handle), TRUE);
}

INSTANTIATE_TEST_SUITE_P(Rights, RightsConformance, testing::ValuesIn(rightsCases), testing::PrintToStringParamName());

TEST_P(NumberConformance, IsNoHandle)
{
    EXPECT_EQ(outcomeOf([] { return GetParam().call.make(handleOf(GetParam().number)); }),
              (Outcome{GetParam().call.failure, ERROR_INVALID_HANDLE}));
}

INSTANTIATE_TEST_SUITE_P(Numbers, NumberConformance, testing::ValuesIn(numberCases), testing::PrintToStringParamName());

TEST_P(ExitConformance, IsTheExitCode)
{
    const Child child({"-", GetParam().argument});
    const HANDLE handle = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, child.id());
    EXPECT_EQ(outcomeOf([&] { return WaitForSingleObject(handle, INFINITE); }), (Outcome{WAIT_OBJECT_0, 0}));
    EXPECT_EQ(outcomeOf([&] { return GetExitCodeProcess(handle, &exitCode); }), granted);
    EXPECT_EQ(exitCode, GetParam().exitCode);
    CloseHandle(handle);
}

INSTANTIATE_TEST_SUITE_P(Exits, ExitConformance,
                         testing::Values(ExitCase{"None", "x", 0}, ExitCase{"Of0", "exit:0", 0},
                                         ExitCase{"Of1", "exit:1", 1}, ExitCase{"Of7", "exit:7", 7},
                                         ExitCase{"Of255", "exit:255", 255}),
                         testing::PrintToStringParamName());

TEST_P(TerminationConformance, GivesItsExitCode)
{
    const Child child(longRun);
    const HANDLE handle = OpenProcess(PROCESS_ALL_ACCESS, FALSE, child.id());
    EXPECT_EQ(outcomeOf([&] { return TerminateProcess(handle, GetParam()); }), granted);
    EXPECT_EQ(WaitForSingleObject(handle, INFINITE), WAIT_OBJECT_0);
    GetExitCodeProcess(handle, &exitCode);
    EXPECT_EQ(exitCode, GetParam());
    CloseHandle(handle);
}

INSTANTIATE_TEST_SUITE_P(Codes, TerminationConformance, testing::Values(0, 1, 99, 256, 65536, 0xFFFFFFFF));

TEST_P(OpenConformance, IsNoProcess)
{
    EXPECT_EQ(outcomeOf([] { return numberOf(OpenProcess(SYNCHRONIZE, FALSE, GetParam())); }),
              (Outcome{0, ERROR_INVALID_PARAMETER}));
}

INSTANTIATE_TEST_SUITE_P(Processes, OpenConformance,
                         testing::Values(0, 0x7FFFFFF0, 0x80000000, 0xFFFF8000, 0xFFFFFFF0, 0xFFFFFFFF));

TEST_F(ProcessConformance, HandlesAreMultiplesOf4)
{
    const HANDLE first = open(SYNCHRONIZE), second = open(SYNCHRONIZE);
    EXPECT_NE(first, second);
    EXPECT_EQ(numberOf(first) % 4, 0);
    EXPECT_EQ(numberOf(second) % 4, 0);
    CloseHandle(first);
    CloseHandle(second);
}

TEST_F(ProcessConformance, TheLowestTwoBitsOfAHandleDoNotCount)
{
    const HANDLE handle = open(SYNCHRONIZE | PROCESS_QUERY_INFORMATION);
    for (const std::intptr_t tag : {1, 2, 3}) {
        EXPECT_EQ(outcomeOf([&] { return WaitForSingleObject(handleOf(numberOf(handle) + tag), 0); }), runs);
        EXPECT_EQ(outcomeOf([&] { return GetExitCodeProcess(handleOf(numberOf(handle) + tag), &exitCode); }), granted);
    }
    EXPECT_EQ(outcomeOf([&] { return CloseHandle(handleOf(numberOf(handle) + 3)); }), granted);
    EXPECT_EQ(outcomeOf([&] { return CloseHandle(handle); }), (Outcome{0, ERROR_INVALID_HANDLE}));
}

TEST_F(ProcessConformance, AClosedHandleIsNone)
{
    const HANDLE handle = open(PROCESS_ALL_ACCESS);
    EXPECT_EQ(outcomeOf([&] { return CloseHandle(handle); }), granted);
    for (const Call &call : {waiting, querying, terminating, closing})
        EXPECT_EQ(outcomeOf([&] { return call.make(handle); }), (Outcome{call.failure, ERROR_INVALID_HANDLE}))
            << call.name;
}

TEST_F(ProcessConformance, HandlesOfOneProcessAreIndependent)
{
    const HANDLE first = open(SYNCHRONIZE), second = open(SYNCHRONIZE);
    CloseHandle(first);
    EXPECT_EQ(outcomeOf([&] { return waiting.make(second); }), runs);
    CloseHandle(second);
}

TEST_F(ProcessConformance, TheExitCodeOfAProcessThatRunsIs259)
{
    const HANDLE handle = open(PROCESS_QUERY_LIMITED_INFORMATION);
    EXPECT_EQ(outcomeOf([&] { return querying.make(handle); }), granted);
    EXPECT_EQ(exitCode, DWORD{STILL_ACTIVE});
    CloseHandle(handle);
}

TEST_F(ProcessConformance, AFailedQueryLeavesTheExitCodeAlone)
{
    exitCode = 12345;
    EXPECT_EQ(outcomeOf([&] { return querying.make(handleOf(100000)); }), (Outcome{0, ERROR_INVALID_HANDLE}));
    EXPECT_EQ(exitCode, 12345U);
}

TEST_F(ProcessConformance, ATimeOutComesWhenItsTimeIsOver)
{
    const HANDLE handle = open(SYNCHRONIZE);
    for (const DWORD milliseconds : {0U, 1U, 50U})
        EXPECT_EQ(outcomeOf([&] { return WaitForSingleObject(handle, milliseconds); }), runs);
    CloseHandle(handle);
}

TEST_F(ProcessConformance, AWaitForAProcessThatHasEndedEndsAtOnce)
{
    const HANDLE handle = open(PROCESS_ALL_ACCESS);
    TerminateProcess(handle, 3);
    for (const DWORD milliseconds : {DWORD{INFINITE}, DWORD{0}, DWORD{1}})
        EXPECT_EQ(outcomeOf([&] { return WaitForSingleObject(handle, milliseconds); }), (Outcome{WAIT_OBJECT_0, 0}));
    CloseHandle(handle);
}

TEST(CurrentProcessConformance, IsMinus1AndRuns)
{
    EXPECT_EQ(numberOf(GetCurrentProcess()), -1);
    EXPECT_EQ(outcomeOf([] { return querying.make(GetCurrentProcess()); }), granted);
    EXPECT_EQ(exitCode, DWORD{STILL_ACTIVE});
    EXPECT_EQ(outcomeOf([] { return waiting.make(GetCurrentProcess()); }), runs);
}

TEST(CurrentProcessConformance, CanBeOpenedByItsId)
{
    const HANDLE handle = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, GetCurrentProcessId());
    EXPECT_GT(numberOf(handle), 0);
    EXPECT_EQ(outcomeOf([&] { return waiting.make(handle); }), runs);
    EXPECT_EQ(outcomeOf([&] { return querying.make(handle); }), granted);
    EXPECT_EQ(exitCode, DWORD{STILL_ACTIVE});
    CloseHandle(handle);
}

TEST(CurrentProcessConformance, NeedNotBeClosed)
{
    EXPECT_EQ(outcomeOf([] { return CloseHandle(GetCurrentProcess()); }), granted);
    EXPECT_EQ(outcomeOf([] { return waiting.make(GetCurrentProcess()); }), runs);
}

TEST(CurrentThreadConformance, IsNoProcess) // -2 is a handle of a thread on Windows
{
    EXPECT_EQ(outcomeOf([] { return querying.make(handleOf(-2)); }), (Outcome{0, ERROR_INVALID_HANDLE}));
}
