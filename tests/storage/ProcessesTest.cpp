// What a second process sees, and what is left of a killed one.

#include "storage/AtomicFile.h"
#include "storage/FileLock.h"
#include "tests/storage/StorageTest.h"

#include <functional>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Processes : public StorageTest
{
protected:
    // A child that performs the action and ends.
    static pid_t start(const std::function<void()> &action)
    {
        const pid_t child = fork();
        if (child == 0) {
            action();
            _exit(0);
        }
        return child;
    }

    static bool endsWell(pid_t child)
    {
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    static void killAfter(pid_t child, useconds_t microseconds)
    {
        usleep(microseconds);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }

    // Replaces the content by long runs of one letter and the next, for ever.
    void rewrite(const QString &name)
    {
        for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
            const FileLock lock(path(name));
            replaceFile(path(name), QByteArray(200'000, letter), m_failure);
        }
    }
};

} // namespace

TEST_F(Processes, KilledWritersLeaveTheOldContentOrTheNew)
{
    constexpr int Kills = 100;
    write(u"a"_qs, QByteArray(200'000, '0'));
    for (int round = 0; round < Kills; ++round) {
        killAfter(start([this] { rewrite(u"a"_qs); }), static_cast<useconds_t>(500 + round * 97));
        const QByteArray content = contentOf(u"a"_qs);
        ASSERT_EQ(content.size(), 200'000) << round;
        ASSERT_EQ(content.count(content.front()), 200'000) << round;
        ASSERT_TRUE(FileLock(path(u"a"_qs), std::chrono::milliseconds(0)).isHeld()) << round;
    }
    EXPECT_NE(contentOf(u"a"_qs).front(), '0'); // the writers did write
}

TEST_F(Processes, WhatKilledOnesWithoutALockLeftIsRemovedByTheNext)
{
    const pid_t dead = start([] {}), living = start([] { pause(); });
    ASSERT_TRUE(endsWell(dead));
    const QString left = u"a.%1.new"_qs.arg(dead), others = u"b.%1.new"_qs.arg(dead), busy = u"a.%1.new"_qs.arg(living);
    const QStringList kept = {u"a"_qs, busy, u"a.new"_qs, u"a.x.new"_qs, others};
    write(left, "old");
    for (const QString &name : kept)
        write(name, "old");
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "new", m_failure, Writers::Locked));
    write(u"a.new"_qs, "old"); // which was overwritten and renamed
    EXPECT_TRUE(names().contains(left));
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "new", m_failure, Writers::Free));
    QStringList sorted = kept;
    sorted.sort();
    EXPECT_EQ(names(), sorted);
    killAfter(living, 0);
}

TEST_F(Processes, NoneOfTheChangesMadeUnderTheLockIsLost)
{
    constexpr int Writers = 4, Changes = 100;
    write(u"sum"_qs, "0");
    std::vector<pid_t> children;
    for (int writer = 0; writer < Writers; ++writer)
        children.push_back(start([this] {
            for (int change = 0; change < Changes; ++change) {
                const FileLock lock(path(u"sum"_qs));
                const int sum = contentOf(u"sum"_qs).toInt();
                if (!lock.isHeld() || !replaceFile(path(u"sum"_qs), QByteArray::number(sum + 1), m_failure))
                    _exit(1);
            }
        }));
    for (const pid_t child : children)
        EXPECT_TRUE(endsWell(child));
    EXPECT_EQ(contentOf(u"sum"_qs), QByteArray::number(Writers * Changes));
}

TEST_F(Processes, OneThatWantsTheLockAgainAtOnceLetsTheOthersIn)
{
    const pid_t greedy = start([this] {
        for (;;) {
            const FileLock lock(path(u"a"_qs));
            usleep(20'000);
        }
    });
    while (!names().contains(u"a.lock"_qs))
        usleep(1000);
    for (int round = 0; round < 10; ++round)
        EXPECT_TRUE(FileLock(path(u"a"_qs), std::chrono::seconds(2)).isHeld()) << round;
    killAfter(greedy, 0);
}

TEST_F(Processes, OneThatGaveUpWaitingStandsInNobodysWay)
{
    const pid_t owner = start([this] {
        const FileLock lock(path(u"a"_qs));
        pause();
    });
    while (FileLock(path(u"a"_qs), std::chrono::milliseconds(0)).isHeld())
        usleep(1000);
    const FileLock failed(path(u"a"_qs), std::chrono::milliseconds(20));
    EXPECT_FALSE(failed.isHeld());
    killAfter(owner, 0);
    EXPECT_TRUE(FileLock(path(u"a"_qs), std::chrono::milliseconds(0)).isHeld());
}
