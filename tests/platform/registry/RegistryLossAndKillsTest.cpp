// Writers that are killed before and after each of their system calls: what they leave is never taken for a file that
// lacks changes, and what is cut from it later always is. And readers that come in between.

#include "tests/platform/registry/RegistryStoreTest.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class RegistryLossAndKills : public RegistryStoreTest
{
protected:
    void SetUp() override
    {
        if (const int error = tracingError(); error != 0)
            GTEST_SKIP() << "processes cannot be traced here: " << std::strerror(error);
    }

    // Whether it was killed, at its so many-th stop; else it has ended before.
    static bool killAtStop(int stop, const std::function<void()> &action)
    {
        const pid_t child = fork();
        if (child == 0) {
            if (ptrace(PTRACE_TRACEME) != 0)
                _exit(1);
            raise(SIGSTOP);
            action();
            _exit(0);
        }
        int status = 0;
        for (waitpid(child, &status, 0); stop > 0 && WIFSTOPPED(status); --stop) {
            ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
            waitpid(child, &status, 0);
        }
        if (!WIFSTOPPED(status)) {
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
            return false;
        }
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
        return true;
    }

    void keep()
    {
        m_content = contentOf(hive());
        m_history = contentOf(lockFile());
    }
    void restore()
    {
        write(hive(), m_content);
        write(lockFile(), m_history);
        restart();
    }

    // `change` writes x. The file as it was kept is what it begins with, each time.
    void killEverywhere(const std::function<void()> &change, const QByteArray &before, const QByteArray &after)
    {
        keep();
        int kills = 0;
        for (bool isKilled = true; isKilled; ++kills) {
            restore();
            isKilled = killAtStop(kills, change);
            restart();
            const QByteArray found = get(u"x");
            EXPECT_TRUE(found == after || (isKilled && found == before)) << kills << found.constData();
            for (const QString &warning : warnings())
                EXPECT_FALSE(warning.contains(u"missing"_qs)) << kills << warning.toStdString();
            warnings().clear();
            if (kills % 3 == 0)
                expectCutIsSeen(kills);
        }
        EXPECT_GT(kills, 30);
    }
    // Behind the next change, which comes from a process that knows nothing of the one that was killed.
    void expectCutIsSeen(int kills)
    {
        const QByteArray present = contentOf(hive());
        set(u"next", "n");
        for (const QByteArray &cut : {present, m_content})
            if (contentOf(hive()).startsWith(cut)) {
                keepCut(cut);
                EXPECT_EQ(get(u"next"), "missing");
                ASSERT_EQ(warnings().size(), 1) << kills;
                EXPECT_TRUE(warnings()[0].contains(u"missing"_qs)) << warnings()[0].toStdString();
                break;
            }
        for (const QString &copy : copies())
            QFile::remove(QFileInfo(hive()).path() + u'/' + copy);
        warnings().clear();
    }

private:
    static int tracingError()
    {
        const pid_t child = fork();
        if (child == 0)
            _exit(ptrace(PTRACE_TRACEME) == 0 ? 0 : errno);
        int status = 0;
        waitpid(child, &status, 0);
        return WEXITSTATUS(status);
    }
    QString lockFile() const { return hive() + u".lock"_qs; }
    void keepCut(const QByteArray &content)
    {
        write(hive(), content);
        restart();
    }

    QByteArray m_content;
    QByteArray m_history;
};

class RegistryLossAndReaders : public RegistryStoreTest
{
};

} // namespace

TEST_F(RegistryLossAndKills, OfAProcessThatAddsAChange)
{
    set(u"y", "1");
    set(u"x", "1");
    set(u"y", "2");
    killEverywhere([] { set(u"x", "2"); }, "1", "2");
}

TEST_F(RegistryLossAndKills, OfAProcessThatWritesTheFileAnew)
{
    set(u"x", "1");
    set(u"large", QByteArray(80'000, '1'));
    const QByteArray large(50'000, '2');
    killEverywhere([&large] { set(u"x", large); }, "1", large);
    EXPECT_EQ(contentOf(hive()).count("; end\n"), 1);
}

// All that the file held behind its first block is undone by the change.
TEST_F(RegistryLossAndKills, OfAProcessThatWritesTheFileAnewJustAsItBegan)
{
    set(u"x", "1");
    const QByteArray first = contentOf(hive());
    write(hive(),
          first + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:32\n; " + QByteArray(262'070, 'c') + "\n; end\n");
    restart();
    killEverywhere([] { set(u"x", "1"); }, "2", "1");
    restore();
    set(u"x", "1");
    EXPECT_EQ(contentOf(hive()), first);
}

TEST_F(RegistryLossAndReaders, WritersLeaveReadersInPeace)
{
    set(u"x", "0");
    const pid_t child = fork();
    if (child == 0) {
        for (int change = 0; change < 300; ++change)
            set(u"x", QByteArray(change % 10 == 0 ? 30'000 : 10, 'x'));
        _exit(0);
    }
    int reads = 0;
    for (int status = 0; waitpid(child, &status, WNOHANG) == 0; ++reads) {
        restart();
        EXPECT_NE(get(u"x"), "missing");
    }
    EXPECT_GT(reads, 10);
    EXPECT_EQ(warnings(), QStringList());
    EXPECT_EQ(copies(), QStringList());
}
