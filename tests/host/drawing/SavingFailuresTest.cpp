// Saves that are killed, and places that take no drawing.

#include "host/drawing/DrawingWriter.h"

#include "tests/host/drawing/SampleDrawing.h"
#include "tests/storage/StorageTest.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/Unprivileged.h"

#include <chrono>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace drawing {
namespace {

class SavingFailures : public StorageTest
{
protected:
    bool save(Database &database, Backup backup = Backup::None)
    {
        return saveDrawing(database, path(u"plan.dxf"_qs), backup, m_failure);
    }
    QStringList filesBeside() const { return names().filter(u".new"_qs); }
};

// Every line is a record; an edit in the middle makes the writer put the file together from three parts.
std::string linesText(int count)
{
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        text += "0\nLINE\n5\n" + QString::number(i + 16, 16).toUpper().toStdString() + "\n8\nWalls\n10\n" + number +
                ".25\n20\n0.5\n11\n" + number + ".75\n21\n100.0\n";
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

void editMiddle(Database &database, int count)
{
    const RecordId line = database.find(Handle{static_cast<std::uint64_t>(count / 2 + 16)});
    database.replace(line, withValue(database.groups(line), 8, std::u16string(u"Doors")));
}

TEST_F(SavingFailures, ASaveThatIsKilledLeavesTheOldDrawingOrTheNew)
{
    constexpr int Kills = 200, Lines = 30'000;
    const auto original = databaseOf(linesText(Lines)), changed = databaseOf(linesText(Lines));
    editMiddle(*changed, Lines);
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_TRUE(save(*original));
    const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
    const QByteArray contents[] = {QByteArray::fromStdString(writtenDrawing(*original)),
                                   QByteArray::fromStdString(writtenDrawing(*changed))};
    ASSERT_NE(contents[0], contents[1]);
    int now = 0, within = 0, changes = 0;
    std::int64_t patience = 0; // grows until a save comes through, however slow the machine has become
    for (int round = 0; round < Kills; ++round) {
        const pid_t child = fork();
        if (child == 0)
            _exit(save(now == 0 ? *changed : *original) ? 0 : 1);
        usleep(static_cast<useconds_t>(patience));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0) << round;
        const QByteArray content = contentOf(u"plan.dxf"_qs);
        const bool isNew = content == contents[1 - now];
        ASSERT_TRUE(isNew || content == contents[now]) << round;
        now = isNew ? 1 - now : now;
        changes += isNew ? 1 : 0;
        patience = isNew ? 0 : patience + whole.count() / 50;
        within += filesBeside().isEmpty() ? 0 : 1; // of this save: the one before has removed what was there
        ASSERT_LE(filesBeside().size(), 1) << round;
    }
    EXPECT_GE(within, 20);
    EXPECT_GE(changes, 1);
    ASSERT_TRUE(save(*original));
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
}

TEST_F(SavingFailures, AFullDiskKeepsTheDrawingAndIsTold)
{
    const auto database = databaseOf(linesText(1000));
    ASSERT_TRUE(save(*database));
    const QByteArray before = contentOf(u"plan.dxf"_qs);
    editMiddle(*database, 1000);
    {
        const FileSizeLimit limit(10'000);
        EXPECT_FALSE(save(*database));
    }
    EXPECT_EQ(m_failure, path(u"plan.dxf"_qs) + u": File too large"_qs);
    EXPECT_EQ(contentOf(u"plan.dxf"_qs), before);
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
    ASSERT_TRUE(save(*database)); // nothing is lost: later there is room
    EXPECT_EQ(contentOf(u"plan.dxf"_qs), QByteArray::fromStdString(writtenDrawing(*database)));
}

TEST_F(SavingFailures, AFullDiskWhileTheBackupIsMadeKeepsTheDrawingAndTheOlderBackup)
{
    const auto database = databaseOf(linesText(1000));
    ASSERT_TRUE(save(*database));
    write(u"plan.bak"_qs, "older");
    const QByteArray before = contentOf(u"plan.dxf"_qs);
    {
        const FileSizeLimit limit(10'000);
        EXPECT_FALSE(save(*database, Backup::Keep));
    }
    EXPECT_EQ(m_failure, path(u"plan.bak"_qs) + u": File too large"_qs);
    EXPECT_EQ(contentOf(u"plan.dxf"_qs), before);
    EXPECT_EQ(contentOf(u"plan.bak"_qs), "older");
}

TEST_F(SavingFailures, AReadOnlyFolderKeepsTheDrawingAndIsTold)
{
    const auto database = databaseOf(SampleText);
    write(u"plan.dxf"_qs, "old");
    const auto setMode = [this](const QString &name, mode_t mode) {
        ASSERT_EQ(chmod(QFile::encodeName(path(name)).constData(), mode), 0);
    };
    setMode(u"plan.dxf"_qs, 0666);
    setMode(u"."_qs, 0555);
    EXPECT_TRUE(holdsUnprivileged([&] { return !save(*database) && m_failure.endsWith(u"Permission denied"_qs); }));
    setMode(u"."_qs, 0755);
    EXPECT_EQ(contentOf(u"plan.dxf"_qs), "old");
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
}

TEST_F(SavingFailures, APipeIsNeitherReadForABackupNorReplaced)
{
    const auto database = databaseOf(SampleText);
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"plan.dxf"_qs)).constData(), 0600), 0);
    EXPECT_FALSE(save(*database, Backup::Keep));
    EXPECT_EQ(m_failure, path(u"plan.dxf"_qs) + u": it is no regular file"_qs);
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(path(u"plan.dxf"_qs)).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(SavingFailures, AFileThatVanishesMeanwhileIsWrittenAnew)
{
    const auto database = databaseOf(SampleText);
    ASSERT_TRUE(save(*database));
    ASSERT_TRUE(QFile::remove(path(u"plan.dxf"_qs)));
    ASSERT_TRUE(save(*database, Backup::Keep));
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
}

} // namespace
} // namespace drawing
