// The profile store as modules see it.

#include "storage/ProfileFolder.h"
#include "tests/host/kernel/LispHostFixture.h"

#include <QTemporaryDir>

#include <array>

namespace {

// Chosen before the host services ask for it.
class TemporaryProfile
{
protected:
    TemporaryProfile() { setProfileFolder(m_folder.path()); }
    ~TemporaryProfile() { setProfileFolder(QString()); }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

class LispHostProfile : private TemporaryProfile, public LispHostTest
{
protected:
    using TemporaryProfile::path;

    // What a buffer of so many units holds afterwards, and after it the units that were not touched, as ~.
    std::u16string read(const char16_t *key, int capacity)
    {
        m_buffer.fill(u'~');
        EXPECT_EQ(m_host.getProfileString(u"s", key, u"default", m_buffer.data(), capacity), StatusNormal);
        return m_buffer.data();
    }

    std::array<char16_t, 16> m_buffer;
};

} // namespace

TEST_F(LispHostProfile, givesWhatWasStoredOrTheDefault)
{
    EXPECT_EQ(m_host.setProfileString(u"s", u"a", u"größe"), StatusNormal);
    EXPECT_EQ(read(u"a", 16), u"größe");
    EXPECT_EQ(read(u"b", 16), u"default");
    EXPECT_TRUE(QFile::exists(path() + QStringLiteral("/settings.ini")));
}

TEST_F(LispHostProfile, cutsAValueToTheBuffer)
{
    m_host.setProfileString(u"s", u"a", u"abcdef");
    EXPECT_EQ(read(u"a", 7), u"abcdef");
    EXPECT_EQ(read(u"a", 6), u"abcde");
    EXPECT_EQ(m_buffer[6], u'~');
    EXPECT_EQ(read(u"a", 1), u"");
    EXPECT_EQ(read(u"b", 4), u"def"); // the default as well
}

TEST_F(LispHostProfile, cutsAtUnitsWithinAPairToo)
{
    m_host.setProfileString(u"s", u"a", u"ab\U0001F600");
    EXPECT_EQ(read(u"a", 4), u"ab\xd83d");
    EXPECT_EQ(read(u"a", 5), u"ab\U0001F600");
}

TEST_F(LispHostProfile, keepsAByteOrderMarkInFront)
{
    m_host.setProfileString(u"s", u"a", u"\ufeffa");
    EXPECT_EQ(read(u"a", 16), u"\ufeffa");
}

TEST_F(LispHostProfile, withoutRoomForTheTerminatorFails)
{
    EXPECT_EQ(m_host.getProfileString(u"s", u"a", u"default", m_buffer.data(), 0), StatusError);
}

TEST_F(LispHostProfile, ofAFolderThatIsAFileFailsAndSaysWhy)
{
    std::string warnings;
    m_services.warn = [&warnings](const QString &text) { warnings += text.toStdString(); };
    ASSERT_TRUE(QDir(path()).mkpath(QStringLiteral("settings.ini")));
    EXPECT_EQ(m_host.getProfileString(u"s", u"a", u"default", m_buffer.data(), 16), StatusError);
    EXPECT_EQ(m_host.setProfileString(u"s", u"a", u"1"), StatusError);
    EXPECT_NE(warnings.find("settings.ini"), std::string::npos) << warnings;
}
