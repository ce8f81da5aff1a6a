// A change that another process has begun to write, beside a process that reads and then writes.

#include "platform/RegistryNotice.h"
#include "storage/FileLock.h"
#include "tests/platform/registry/RegistryStoreTest.h"

namespace {

class RegistryTornChange : public RegistryStoreTest
{
protected:
    RegistryTornChange() { set(u"x", "1"); }

    void append(const QByteArray &text) const
    {
        QFile file(hive());
        ASSERT_TRUE(file.open(QFile::Append));
        ASSERT_EQ(file.write(text), text.size());
    }
    // So that the next call looks at the file.
    void announce() const { RegistryNotice(folder() + u"/registry"_qs).announce(); }

    // Writes so much of a change, holding the lock, is read meanwhile and dies.
    void writeAndDie(const QByteArray &half)
    {
        const FileLock lock(hive());
        ASSERT_TRUE(lock.isHeld());
        append(half);
        announce();
        EXPECT_EQ(get(u"x") + get(u"n"), "1missing");
        EXPECT_EQ(warnings(), QStringList());
    }

    static QByteArray block(const QByteArray &values) { return "\n[HKEY_CURRENT_USER\\Software\\Test]\n" + values; }
};

} // namespace

TEST_F(RegistryTornChange, ThatWasSeenWhileItWasWrittenIsNotFinishedByTheNextChange)
{
    const QByteArray halves[] = {block("\"n\"=dword:0000002"), block("\"n\"=\"abc"), block(""),
                                 block("\"n\"=hex:01,\\\n"), "\n[HKEY_CURR"};
    for (const QByteArray &half : halves) {
        const QByteArray before = contentOf(hive());
        const qsizetype copiesBefore = copies().size();
        writeAndDie(half);
        EXPECT_EQ(set(u"y", "2"), 0);
        restart();
        EXPECT_EQ(get(u"x") + get(u"n") + get(u"y"), "1missing2") << half.toStdString();
        ASSERT_EQ(copies().size(), copiesBefore + 1) << half.toStdString();
        EXPECT_EQ(contentOf(QFileInfo(hive()).path() + u'/' + copies().constLast()), before + half);
        ASSERT_FALSE(warnings().isEmpty()) << half.toStdString();
        EXPECT_TRUE(warnings().constLast().contains(
            u"the last change is not finished and does not count; the file as it was is kept as "_qs));
        warnings().clear();
    }
}

TEST_F(RegistryTornChange, ThatWasSeenWhileItWasWrittenIsReportedByTheNextReading)
{
    writeAndDie(block("\"n\"=dword:0000002"));
    announce();
    EXPECT_EQ(get(u"x") + get(u"n"), "1missing");
    EXPECT_EQ(copies(), QStringList());
    EXPECT_EQ(warnings().size(), 1);
}

TEST_F(RegistryTornChange, ThatIsFinishedAfterItWasSeenCounts)
{
    {
        const FileLock lock(hive());
        append(block("\"n\"=hex:3"));
        announce();
        EXPECT_EQ(get(u"n"), "missing");
        append("2\n; end\n");
    }
    EXPECT_EQ(set(u"y", "3"), 0);
    EXPECT_EQ(get(u"x") + get(u"n") + get(u"y"), "123");
    EXPECT_EQ(warnings(), QStringList());
    EXPECT_EQ(copies(), QStringList());
}

// Editors know nothing of the lock.
TEST_F(RegistryTornChange, IsNotAddedToAFileThatSomebodyElseMadeLongerMeanwhile)
{
    RegistryBatch batch;
    EXPECT_EQ(set(u"x", "2"), 0);
    append(block("\"n\"=hex:33\n; end\n"));
    EXPECT_FALSE(batch.commit());
    EXPECT_EQ(warnings(), QStringList(hive() + u": another program has changed the file meanwhile"_qs));
    EXPECT_EQ(get(u"x") + get(u"n"), "13");
    EXPECT_EQ(set(u"x", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x") + get(u"n"), "23");
}
