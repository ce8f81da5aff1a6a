#include "tests/host/kernel/profile/ProfileStoreFixture.h"

#include <QDateTime>

using Store = ProfileStoreTest;

TEST_F(Store, MakesNothingBeforeTheFirstChange)
{
    ProfileStore profile = store();
    EXPECT_EQ(read(profile, u"a"_qs), "none");
    EXPECT_FALSE(QDir(folder()).exists());
    EXPECT_EQ(m_warnings, "");
}

TEST_F(Store, ReadsInAnotherRunWhatWasWritten)
{
    ASSERT_TRUE(store().setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    ProfileStore profile = store();
    EXPECT_EQ(read(profile, u"a"_qs), "1");
    EXPECT_EQ(read(profile, u"A"_qs), "none");
    EXPECT_EQ(contentOf(file()), "; What LISP programs keep from run to run.\n"
                                 "; \\n, \\r, \\t and \\uXXXX stand for characters, \\\\ for a backslash.\n"
                                 "[s]\na=1\n");
}

TEST_F(Store, KeepsAnyText)
{
    const QStringList texts = {u""_qs,
                               u"a\nb"_qs,
                               u"a=b"_qs,
                               u"[a]"_qs,
                               u"; a"_qs,
                               u" a "_qs,
                               u"\\n"_qs,
                               u"\ufeffa"_qs,
                               u"a"_qs + QChar(0xd800) + u"b"_qs,
                               QString(100'000, u'ß')};
    ProfileStore writing = store();
    for (const QString &text : texts)
        ASSERT_TRUE(writing.setValue(text, text, text));
    ProfileStore reading = store();
    for (const QString &text : texts)
        EXPECT_EQ(reading.value(text, text, u"none"_qs), text);
    EXPECT_EQ(m_warnings, "");
}

TEST_F(Store, SeesAtOnceWhatAnotherHostChanged)
{
    ProfileStore writing = store(), reading = store();
    for (int number = 0; number < 100; ++number) {
        const QString value = QString::number(number % 10); // of one size, so that the file is too
        ASSERT_TRUE(writing.setValue(u"s"_qs, u"a"_qs, value));
        EXPECT_EQ(read(reading, u"a"_qs), value.toStdString());
    }
}

TEST_F(Store, KeepsWhatAnotherHostWroteInBetween)
{
    ProfileStore first = store(), second = store();
    ASSERT_TRUE(first.setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    ASSERT_TRUE(second.setValue(u"s"_qs, u"b"_qs, u"2"_qs));
    ASSERT_TRUE(first.setValue(u"s"_qs, u"c"_qs, u"3"_qs));
    EXPECT_EQ(read(second, u"a"_qs) + read(second, u"b"_qs) + read(second, u"c"_qs), "123");
}

TEST_F(Store, DoesNotReadAgainWhatDidNotChange)
{
    // Another content of the same file, time and size would be read if anything was.
    const auto writeInPlace = [this](const QByteArray &content) {
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::ReadWrite));
        target.write(content);
        target.flush();
        ASSERT_TRUE(
            target.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000'000), QFileDevice::FileModificationTime));
    };
    writeFile("");
    writeInPlace("[s]\na=1\n");
    const FileStamp stamp = FileStamp::of(file());
    ProfileStore profile = store();
    EXPECT_EQ(read(profile, u"a"_qs), "1");
    writeInPlace("[s]\na=2\n");
    ASSERT_EQ(FileStamp::of(file()), stamp);
    EXPECT_EQ(read(profile, u"a"_qs), "1");
    // A change reads it whatever the stamp says.
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"b"_qs, u"3"_qs));
    EXPECT_EQ(read(profile, u"a"_qs), "2");
}

TEST_F(Store, DoesNotWriteAValueThatIsThereAlready)
{
    ProfileStore profile = store();
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    const FileStamp stamp = FileStamp::of(file());
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    EXPECT_EQ(FileStamp::of(file()), stamp);
}

TEST_F(Store, ForgetsWhatWasInAFileThatIsGone)
{
    ProfileStore profile = store();
    ASSERT_TRUE(profile.setValue(u"s"_qs, u"a"_qs, u"1"_qs));
    ASSERT_TRUE(QFile::remove(file()));
    EXPECT_EQ(read(profile, u"a"_qs), "none");
}
