#include "platform/Beep.h"
#include "platform/LastError.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>

namespace {

// The players that PATH leads to, as scripts.
class BeepWithPlayers : public testing::Test
{
protected:
    BeepWithPlayers() { qputenv("PATH", QFile::encodeName(m_folder.path()) + ":" + m_path); }
    ~BeepWithPlayers() override { qputenv("PATH", m_path); }

    void install(const QString &player, const QByteArray &script)
    {
        QFile file(m_folder.filePath(player));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QByteArray contentOf(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }

private:
    const QByteArray m_path = qgetenv("PATH");
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(BeepWithPlayers, TheFirstOnePlaysTheTone)
{
    install(u"paplay"_qs, "exec cat >\"$(dirname \"$0\")/tone\"");
    install(u"pw-play"_qs, "touch \"$(dirname \"$0\")/second\"");
    EXPECT_EQ(Beep(700, 500), TRUE);
    const QByteArray tone = contentOf(u"tone"_qs);
    EXPECT_TRUE(tone.startsWith("RIFF")) << tone.size();
    EXPECT_EQ(tone.size(), 44 + 44 * 500 * 2);
    EXPECT_EQ(contentOf(u"second"_qs), "nothing");
}

TEST_F(BeepWithPlayers, WhenOneFailsTheNextOneIsTried)
{
    install(u"paplay"_qs, "exit 1");
    install(u"pw-play"_qs, "kill -9 $$");
    install(u"aplay"_qs, "echo \"$@\" >\"$(dirname \"$0\")/third\"");
    EXPECT_EQ(Beep(700, 1000), TRUE);
    EXPECT_EQ(contentOf(u"third"_qs), "-q\n");
}

TEST_F(BeepWithPlayers, OneThatHangsMakesTheCallNoLongerAndIsEnded)
{
    install(u"paplay"_qs, "echo $$ >\"$(dirname \"$0\")/id\"; exec sleep 60");
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Beep(700, 300), TRUE);
    EXPECT_LT(timer.elapsed(), 1200);
    const QString state = u"/proc/"_qs + QString::fromLatin1(contentOf(u"id"_qs).trimmed()) + u"/stat"_qs;
    const auto runs = [&state] {
        QFile file(state);
        return file.open(QIODevice::ReadOnly) && !file.readAll().contains(") Z ");
    };
    EXPECT_TRUE(runs());
    while (runs() && timer.elapsed() < 20'000)
        QThread::msleep(50);
    EXPECT_FALSE(runs());
}

TEST(Beep, TakesItsTimeWhateverTheMachineHas)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Beep(37, 120), TRUE);
    EXPECT_GE(timer.elapsed(), 119);
    EXPECT_EQ(Beep(32767, 0), TRUE);
}

TEST(Beep, AFrequencyOutOfRangeIsRefusedAtOnce)
{
    for (const DWORD frequency : {0U, 36U, 32768U, 0xFFFFFFFFU}) {
        SetLastError(0);
        EXPECT_EQ(Beep(frequency, 60000), FALSE);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}
