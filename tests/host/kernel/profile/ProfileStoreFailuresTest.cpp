// Damaged files, and places that cannot be read or written.

#include "tests/host/kernel/profile/ProfileStoreFixture.h"

using StoreFailures = ProfileStoreTest;

TEST_F(StoreFailures, ADamagedLineIsToldOfOnceAndTheOthersAreRead)
{
    writeFile("[s]\na=1\nrubbish\nb=2\nrubbish\n");
    ProfileStore profile = store();
    EXPECT_EQ(read(profile, u"a"_qs), "1");
    EXPECT_EQ(read(profile, u"b"_qs), "2");
    EXPECT_EQ(m_warnings, file().toStdString() + ", line 3: no = is in it (2 damaged lines in all)\n");
    EXPECT_EQ(contentOf(file()), "[s]\na=1\nrubbish\nb=2\nrubbish\n");
}

TEST_F(StoreFailures, ADamagedFileIsKeptUnderAnotherNameBeforeAChange)
{
    const std::string name = file().toStdString();
    writeFile("[s]\na=1\nrubbish\n");
    ProfileStore profile = store();
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"a"_qs, u"2"_qs));
    EXPECT_EQ(contentOf(file(".damaged")), "[s]\na=1\nrubbish\n");
    EXPECT_EQ(contentOf(file()), "[s]\na=2\n");
    EXPECT_EQ(m_warnings,
              name + ", line 3: no = is in it\n" + name + ": kept as settings.ini.damaged before it was changed\n");

    writeFile("[s]\nmore rubbish\n");
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"a"_qs, u"3"_qs));
    EXPECT_EQ(contentOf(file(".damaged")), "[s]\na=1\nrubbish\n");
    EXPECT_EQ(contentOf(file(".damaged-2")), "[s]\nmore rubbish\n");
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"a"_qs, u"4"_qs));
    EXPECT_FALSE(QFile::exists(file(".damaged-3")));
}

TEST_F(StoreFailures, AFolderThatIsAFileFails)
{
    QFile blocking(folder());
    ASSERT_TRUE(blocking.open(QIODevice::WriteOnly));
    ProfileStore profile = store();
    EXPECT_EQ(read(profile, u"a"_qs), "failure");
    EXPECT_FALSE(profile.setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    EXPECT_EQ(m_warnings, folder().toStdString() + ": it is no folder that can be read\n" + folder().toStdString() +
                              ": the folder cannot be made\n");
}

TEST_F(StoreFailures, AFolderInPlaceOfTheFileFails)
{
    ASSERT_TRUE(QDir().mkpath(file()));
    ProfileStore profile = store();
    EXPECT_EQ(read(profile, u"a"_qs), "failure");
    EXPECT_FALSE(profile.setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    EXPECT_TRUE(QDir(file()).exists());
}

TEST_F(StoreFailures, AProgramThatTriesAgainAndAgainIsToldOnce)
{
    ASSERT_TRUE(QDir().mkpath(file()));
    ProfileStore profile = store();
    for (int attempt = 0; attempt < 5; ++attempt)
        EXPECT_EQ(read(profile, u"a"_qs), "failure");
    EXPECT_EQ(std::count(m_warnings.begin(), m_warnings.end(), '\n'), 1);
}
