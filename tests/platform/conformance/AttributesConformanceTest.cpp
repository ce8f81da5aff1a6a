// Attributes of files, held to what Windows says of them: on Windows this file tests the system itself.

#include "platform/FileAttributes.h"
#include "platform/Processes.h"
#include "tests/platform/conformance/Outcome.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#ifndef _WIN32
#include "tests/support/ExtendedAttributes.h"
#endif

namespace fs = std::filesystem;

namespace {

class AttributesConformance : public testing::Test
{
protected:
    AttributesConformance()
    {
        fs::create_directories(m_folder / "folder");
        std::ofstream(m_folder / "file") << "text";
    }
    ~AttributesConformance() override
    {
        set("file", FILE_ATTRIBUTE_NORMAL); // or Windows would not remove it
        set("folder", FILE_ATTRIBUTE_NORMAL);
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

    std::u16string path(const std::string &name) const { return (m_folder / name).u16string(); }
    DWORD get(const std::string &name) const { return GetFileAttributesW(windowsText(path(name).c_str())); }
    bool set(const std::string &name, DWORD attributes) const
    {
        return SetFileAttributesW(windowsText(path(name).c_str()), attributes) != FALSE;
    }
    // Of a file that is there.
    bool has(const std::string &name, DWORD attribute) const { return of(name, attribute) != 0; }
    // Those of the attributes that it has.
    DWORD of(const std::string &name, DWORD attributes) const
    {
        const DWORD all = get(name);
        EXPECT_NE(all, INVALID_FILE_ATTRIBUTES) << name;
        return all & attributes;
    }

    // Below the current folder: the file system of the build keeps attributes, that of the temporary folder may not.
    const fs::path m_folder = fs::current_path() / ("attributesconformance" + std::to_string(GetCurrentProcessId()));
};

// Linux keeps all but read-only in extended attributes, which are not in every file system.
class HiddenAndSystemConformance : public AttributesConformance
{
#ifndef _WIN32
protected:
    void SetUp() override
    {
        if (!keepsExtendedAttributes(m_folder.c_str()))
            GTEST_SKIP() << "the file system of the build keeps no extended attributes";
    }
#endif
};

} // namespace

TEST_F(AttributesConformance, AFileIsNoDirectoryAndADirectoryIsOne)
{
    EXPECT_FALSE(has("file", FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_TRUE(has("folder", FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(get("folder/"), get("folder"));
}

TEST_F(AttributesConformance, ReadOnlyIsSetAndTakenAway)
{
    for (const DWORD others : std::initializer_list<DWORD>{0, FILE_ATTRIBUTE_ARCHIVE, FILE_ATTRIBUTE_NORMAL}) {
        EXPECT_FALSE(has("file", FILE_ATTRIBUTE_READONLY)) << others;
        EXPECT_TRUE(set("file", FILE_ATTRIBUTE_READONLY | others));
        EXPECT_TRUE(has("file", FILE_ATTRIBUTE_READONLY)) << others;
        EXPECT_FALSE(has("file", FILE_ATTRIBUTE_NORMAL)) << others;
        EXPECT_TRUE(set("file", others));
        EXPECT_FALSE(has("file", FILE_ATTRIBUTE_READONLY)) << others;
    }
}

TEST_F(AttributesConformance, ADirectoryStaysOne)
{
    EXPECT_TRUE(set("folder", FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(has("folder", FILE_ATTRIBUTE_DIRECTORY));
}

constexpr DWORD Hidden = FILE_ATTRIBUTE_HIDDEN, System = FILE_ATTRIBUTE_SYSTEM, ReadOnly = FILE_ATTRIBUTE_READONLY,
                Archive = FILE_ATTRIBUTE_ARCHIVE;

// The archive attribute is looked for only where it was set: Wine gives it to every file.
TEST_F(HiddenAndSystemConformance, OfAFileHiddenAndSystemAreSetBesideOthersAndReadBack)
{
    for (const DWORD others : {DWORD{0}, ReadOnly, Archive, ReadOnly | Archive})
        for (const DWORD attributes : {Hidden, System, Hidden | System}) {
            EXPECT_TRUE(set("file", attributes | others)) << attributes << ' ' << others;
            EXPECT_EQ(of("file", Hidden | System | ReadOnly | (others & Archive)), attributes | others);
            EXPECT_FALSE(has("file", FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_DIRECTORY));
        }
}

TEST_F(HiddenAndSystemConformance, OfAFileHiddenAndSystemAreTakenAwayOneByOneAndTogether)
{
    for (const DWORD left : {Hidden, System, ReadOnly, Archive, DWORD{FILE_ATTRIBUTE_NORMAL}, DWORD{0}}) {
        EXPECT_TRUE(set("file", Hidden | System | ReadOnly | Archive));
        EXPECT_TRUE(set("file", left)) << left;
        EXPECT_EQ(of("file", Hidden | System | ReadOnly), left & (Hidden | System | ReadOnly)) << left;
    }
}

TEST_F(HiddenAndSystemConformance, NormalCountsAloneOnly)
{
    EXPECT_TRUE(set("file", FILE_ATTRIBUTE_NORMAL | Hidden | System));
    EXPECT_EQ(of("file", Hidden | System | FILE_ATTRIBUTE_NORMAL), Hidden | System);
}

TEST_F(HiddenAndSystemConformance, OfAFolderHiddenAndSystemAreSetReadBackAndTakenAway)
{
    for (const DWORD others : {DWORD{0}, Archive})
        for (const DWORD attributes : {Hidden, System, Hidden | System}) {
            EXPECT_TRUE(set("folder", attributes | others)) << attributes << ' ' << others;
            EXPECT_EQ(of("folder", Hidden | System | FILE_ATTRIBUTE_DIRECTORY), attributes | FILE_ATTRIBUTE_DIRECTORY);
            EXPECT_TRUE(set("folder", FILE_ATTRIBUTE_NORMAL));
            EXPECT_EQ(of("folder", Hidden | System | FILE_ATTRIBUTE_DIRECTORY), FILE_ATTRIBUTE_DIRECTORY);
        }
}

TEST_F(HiddenAndSystemConformance, AHiddenFileIsOneForReadersAndStaysSoWhenItIsWritten)
{
    EXPECT_TRUE(set("file", Hidden | System));
    {
        std::ofstream file(fs::path(path("file")), std::ios::app);
        file << " and more";
        EXPECT_TRUE(file.good());
    }
    EXPECT_EQ(of("file", Hidden | System), Hidden | System);
    std::string content;
    std::getline(std::ifstream(fs::path(path("file"))), content);
    EXPECT_EQ(content, "text and more");
}

struct MissingFile
{
    const char *name;
    const char *file; // in the test's folder
    DWORD error;
};

void PrintTo(const MissingFile &row, std::ostream *stream)
{
    *stream << row.name;
}

class MissingFileConformance : public AttributesConformance, public testing::WithParamInterface<MissingFile>
{
};

TEST_P(MissingFileConformance, HasNoAttributes)
{
    const Outcome got = outcomeOf([&] { return get(GetParam().file); });
    EXPECT_EQ(got, (Outcome{INVALID_FILE_ATTRIBUTES, GetParam().error}));
}

TEST_P(MissingFileConformance, CannotBeGivenAny)
{
    for (const DWORD attributes : std::initializer_list<DWORD>{0, FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_ARCHIVE})
        EXPECT_EQ(outcomeOf([&] { return set(GetParam().file, attributes); }), (Outcome{FALSE, GetParam().error}));
}

INSTANTIATE_TEST_SUITE_P(Files, MissingFileConformance,
                         testing::Values(MissingFile{"File", "none", ERROR_FILE_NOT_FOUND},
                                         MissingFile{"FileInFolder", "folder/none", ERROR_FILE_NOT_FOUND},
                                         MissingFile{"Folder", "none/none", ERROR_PATH_NOT_FOUND},
                                         MissingFile{"Folders", "none/none/none", ERROR_PATH_NOT_FOUND},
                                         MissingFile{"BelowAFile", "file/none", ERROR_PATH_NOT_FOUND}),
                         testing::PrintToStringParamName());

TEST(NoNameConformance, IsNoFile)
{
    EXPECT_EQ(outcomeOf([] { return GetFileAttributesW(windowsText(u"")); }),
              (Outcome{INVALID_FILE_ATTRIBUTES, ERROR_PATH_NOT_FOUND}));
    EXPECT_EQ(outcomeOf([] { return SetFileAttributesW(windowsText(u""), FILE_ATTRIBUTE_NORMAL); }),
              (Outcome{FALSE, ERROR_PATH_NOT_FOUND}));
}
