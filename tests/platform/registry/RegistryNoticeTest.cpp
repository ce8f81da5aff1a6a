// The file by which processes notice changes is made small and large by others, and has no room to be made. Each test
// runs in a process of its own, which a wrong access would end.

#include "tests/platform/registry/RegistryStoreTest.h"

#include <functional>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class RegistryNotices : public RegistryStoreTest
{
protected:
    enum Exit { Holds, Fails, CannotTry };

    QString noticeFile() const { return folder() + u"/registry/.changes"_qs; }
    bool cutNoticeFile(qint64 size) const { return QFile::resize(noticeFile(), size); }

    // The exit status of a process that does it; the signal that ended it, negative.
    static int run(const std::function<Exit()> &action)
    {
        const pid_t child = fork();
        if (child == 0)
            _exit(action());
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    static bool othersSet(const char16_t *name, const QByteArray &data)
    {
        return run([&] { return set(name, data) == 0 ? Holds : Fails; }) == Holds;
    }

    // A disk of 64 KB for this process alone.
    bool mountSmallDisk() const
    {
        return unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               mount("none", QFile::encodeName(folder()).constData(), "tmpfs", 0, "size=64k") == 0;
    }
    bool fillDisk() const
    {
        QFile filler(folder() + u"/filler"_qs);
        if (!filler.open(QFile::WriteOnly | QFile::Unbuffered))
            return false;
        while (filler.write(QByteArray(4096, 'x')) > 0) {
        }
        return true;
    }
};

} // namespace

TEST_F(RegistryNotices, AFileThatIsCutShortWhileItIsUsedEndsNoProcessAndLosesNoChange)
{
    for (const qint64 size : {0, 4})
        EXPECT_EQ(run([this, size] {
                      if (set(u"x", "1") != 0 || get(u"x") != "1" || !cutNoticeFile(size) || get(u"x") != "1")
                          return Fails;
                      return cutNoticeFile(size) && set(u"x", "2") == 0 && get(u"x") == "2" ? Holds : Fails;
                  }),
                  Holds)
            << size;
}

TEST_F(RegistryNotices, AfterAFileWasCutShortTheChangesOfOthersAreSeenAtTheNextCall)
{
    EXPECT_EQ(run([this] {
                  if (set(u"x", "0") != 0 || get(u"x") != "0" || !cutNoticeFile(0))
                      return Fails;
                  for (int round = 1; round < 20; ++round)
                      if (!othersSet(u"x", QByteArray::number(round)) || get(u"x") != QByteArray::number(round))
                          return Fails;
                  return Holds;
              }),
              Holds);
}

TEST_F(RegistryNotices, ADiskThatIsFullWhenTheFileIsMadeEndsNoProcess)
{
    const int exit = run([this] {
        if (!mountSmallDisk() || set(u"x", "1") != 0)
            return CannotTry;
        QFile::remove(noticeFile());
        restart();
        return fillDisk() && get(u"x") == "1" && get(u"x") == "1" ? Holds : Fails;
    });
    if (exit == CannotTry)
        GTEST_SKIP() << "no disk can be mounted here";
    EXPECT_EQ(exit, Holds);
}

TEST_F(RegistryNotices, AnErrorOfAnotherFileStillEndsTheProcess)
{
    const auto lives = [] {
        set(u"x", "1");
        get(u"x");
        raise(SIGBUS);
        return Holds;
    };
    EXPECT_NE(run(lives), Holds); // by the signal, or as a sanitizer ends it
}
