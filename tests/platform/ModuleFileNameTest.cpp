#include "platform/ModuleFileName.h"

#include "platform/LastError.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <array>
#include <dlfcn.h>

namespace {

// A library that every program here has loaded.
class ModuleFileName : public testing::Test
{
protected:
    ~ModuleFileName() override { dlclose(m_library); }

    // The whole buffer, of which the call may use so much.
    std::u16string buffer(DWORD capacity)
    {
        std::u16string units(300, u'#');
        m_length = GetModuleFileNameW(m_library, units.data(), capacity);
        return units;
    }

    std::u16string name(DWORD capacity) { return terminated(buffer(capacity)); }

    static std::u16string terminated(const std::u16string &units) { return units.substr(0, units.find(u'\0')); }

    void *m_library = dlopen("libQt6Core.so.6", RTLD_NOW | RTLD_NOLOAD);
    DWORD m_length = 0;
};

} // namespace

TEST_F(ModuleFileName, IsTheFullPathOfTheLibrary)
{
    ASSERT_NE(m_library, nullptr);
    SetLastError(ERROR_GEN_FAILURE);
    const QString path = QString::fromStdU16String(name(300));
    EXPECT_TRUE(path.startsWith(u'/') && path.endsWith(u"/libQt6Core.so.6")) << path.toStdString();
    EXPECT_TRUE(QFileInfo(path).isFile());
    EXPECT_EQ(m_length, path.size());
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
}

TEST_F(ModuleFileName, FitsExactlyWithItsTerminator)
{
    const std::u16string path = name(300);
    const auto length = static_cast<DWORD>(path.size());
    EXPECT_TRUE(name(length + 1) == path);
    EXPECT_EQ(m_length, length);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
}

TEST_F(ModuleFileName, IsCutAndTerminatedWhenTheBufferIsTooSmall)
{
    const std::u16string path = name(300);
    const auto length = static_cast<DWORD>(path.size());
    const std::u16string units = buffer(length);
    EXPECT_EQ(m_length, length);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_TRUE(terminated(units) == path.substr(0, path.size() - 1));
    EXPECT_EQ(units[length], u'#') << "wrote behind the buffer";
}

TEST_F(ModuleFileName, WritesNothingIntoAnEmptyBuffer)
{
    const std::u16string units = buffer(0);
    EXPECT_EQ(m_length, 0u);
    EXPECT_EQ(units[0], u'#');
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(ModuleFileName, OfNoLibraryIsTheProgram)
{
    std::array<char16_t, 4096> buffer;
    GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    EXPECT_TRUE(QStringView(buffer.data()).toString().endsWith(u"/platformtests"));
}
