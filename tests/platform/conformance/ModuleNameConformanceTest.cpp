// Names of modules, held to what Windows says of them: on Windows this file tests the system itself.

#include "platform/ModuleFileName.h"
#include "tests/platform/conformance/Outcome.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace fs = std::filesystem;

namespace {

// A library that the program has loaded, and how its file is named.
#ifdef _WIN32
const HMODULE library = GetModuleHandleW(L"kernel32.dll");
constexpr char libraryName[] = "kernel32.dll";
#else
const HMODULE library = dlopen("libc.so.6", RTLD_NOW | RTLD_NOLOAD);
constexpr char libraryName[] = "libc.so.6";
#endif

struct Answer
{
    Outcome outcome;
    std::u16string units; // the whole buffer
    std::u16string name;
};

Answer nameOf(HMODULE module, DWORD capacity)
{
    Answer answer{{}, std::u16string(capacity + 8, u'#'), {}};
    answer.outcome = outcomeOf([&] { return GetModuleFileNameW(module, windowsText(answer.units.data()), capacity); });
    answer.name = answer.units.substr(0, answer.units.find(u'\0'));
    return answer;
}

// The program and the library.
class ModuleNameConformance : public testing::TestWithParam<HMODULE>
{
protected:
    const std::u16string m_name = nameOf(GetParam(), 4096).name;
};

} // namespace

TEST_P(ModuleNameConformance, IsTheFullPathOfAFile)
{
    const Answer answer = nameOf(GetParam(), 4096);
    EXPECT_EQ(answer.outcome, (Outcome{static_cast<std::int64_t>(m_name.size()), ERROR_SUCCESS}));
    EXPECT_TRUE(fs::path(m_name).is_absolute());
    EXPECT_TRUE(fs::is_regular_file(fs::path(m_name)));
}

TEST_P(ModuleNameConformance, FitsExactlyWithItsTerminator)
{
    const auto length = static_cast<DWORD>(m_name.size());
    const Answer answer = nameOf(GetParam(), length + 1);
    EXPECT_EQ(answer.outcome, (Outcome{length, ERROR_SUCCESS}));
    EXPECT_TRUE(answer.name == m_name);
}

// Whether the last unit is the terminator is not the same everywhere.
TEST_P(ModuleNameConformance, IsCutWhenTheBufferIsTooSmall)
{
    for (const DWORD capacity : {static_cast<DWORD>(m_name.size()), DWORD(5), DWORD(1)}) {
        const Answer answer = nameOf(GetParam(), capacity);
        EXPECT_EQ(answer.outcome, (Outcome{capacity, ERROR_INSUFFICIENT_BUFFER})) << capacity;
        EXPECT_TRUE(answer.units.substr(0, capacity - 1) == m_name.substr(0, capacity - 1)) << capacity;
        EXPECT_EQ(answer.units[capacity], u'#') << "wrote behind the buffer";
    }
}

INSTANTIATE_TEST_SUITE_P(Modules, ModuleNameConformance, testing::Values(HMODULE(nullptr), library));

TEST(ModuleNamesConformance, AreThoseOfTheProgramAndOfTheLibrary)
{
    EXPECT_EQ(fs::path(nameOf(nullptr, 4096).name).stem(), "modulenameconformance");
    ASSERT_NE(library, nullptr);
    std::string file = fs::path(nameOf(library, 4096).name).filename().string();
    std::ranges::transform(file, file.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    EXPECT_EQ(file, libraryName);
}
