// What a second process sees, and what is left of a killed one.

#include "tests/platform/registry/RegistryStoreTest.h"

#include <atomic>
#include <csignal>
#include <functional>
#include <random>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A number that a test shares with its children.
class SharedNumber
{
public:
    SharedNumber()
        : m_number(static_cast<std::atomic<int> *>(
              mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
    }
    ~SharedNumber() { munmap(static_cast<void *>(m_number), sizeof(std::atomic<int>)); }
    SharedNumber(const SharedNumber &) = delete;
    SharedNumber &operator=(const SharedNumber &) = delete;
    std::atomic<int> &operator*() { return *m_number; }

private:
    std::atomic<int> *m_number;
};

class RegistryProcesses : public RegistryStoreTest
{
protected:
    static pid_t start(const std::function<bool()> &action)
    {
        const pid_t child = fork();
        if (child == 0)
            _exit(action() ? 0 : 1);
        return child;
    }
    static bool endsWell(pid_t child)
    {
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    static bool run(const std::function<bool()> &action) { return endsWell(start(action)); }

    static std::u16string nameOf(int number) { return QString::number(number).toStdU16String(); }
};

} // namespace

TEST_F(RegistryProcesses, AChangeIsSeenByAnotherProcessAtItsNextCall)
{
    EXPECT_EQ(get(u"x"), "missing");
    for (int round = 0; round < 50; ++round) {
        ASSERT_TRUE(run([round] { return set(u"x", QByteArray::number(round)) == 0; }));
        ASSERT_EQ(get(u"x"), QByteArray::number(round));
    }
}

TEST_F(RegistryProcesses, ANewFileIsSeenByAnotherProcessAtItsNextCall)
{
    set(u"x", "0");
    for (int round = 0; round < 5; ++round) {
        ASSERT_TRUE(run([round] {
            for (int change = 0; change < 60; ++change)
                if (set(u"x", QByteArray(5000, static_cast<char>('a' + round))) != 0)
                    return false;
            return true;
        }));
        ASSERT_EQ(get(u"x"), QByteArray(5000, static_cast<char>('a' + round)));
    }
}

TEST_F(RegistryProcesses, AKeyThatAnotherProcessRemovesIsGoneFromAnOpenHandle)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, u"Software\\Test\\below", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                              nullptr),
              0);
    ASSERT_TRUE(run([] { return RegDeleteKeyW(HKEY_CURRENT_USER, u"Software\\Test\\below") == 0; }));
    EXPECT_EQ(RegSetValueExW(key, u"x", 0, REG_BINARY, reinterpret_cast<const BYTE *>("x"), 1), ERROR_KEY_DELETED);
    RegCloseKey(key);
}

TEST_F(RegistryProcesses, AKeyThatAnotherProcessRemovesCannotBeOpenedAgain)
{
    constexpr const char16_t *below = u"Software\\Test\\below";
    const auto open = [] {
        HKEY key = nullptr;
        const LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, below, 0, KEY_READ, &key);
        RegCloseKey(key);
        return status;
    };
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, below, 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr);
    RegCloseKey(key);
    EXPECT_EQ(open(), 0);
    ASSERT_TRUE(run([] { return RegDeleteKeyW(HKEY_CURRENT_USER, below) == 0; }));
    EXPECT_EQ(open(), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryProcesses, TwoProcessesThatWriteAtOnceLoseNothing)
{
    constexpr int Writers = 4, Values = 60;
    std::vector<pid_t> children;
    for (int writer = 0; writer < Writers; ++writer)
        children.push_back(start([writer] {
            for (int value = 0; value < Values; ++value)
                if (set(nameOf(writer * Values + value).c_str(), "written") != 0)
                    return false;
            return true;
        }));
    for (const pid_t child : children)
        EXPECT_TRUE(endsWell(child));
    for (int value = 0; value < Writers * Values; ++value)
        EXPECT_EQ(get(nameOf(value).c_str()), "written") << value;
    restart();
    for (int value = 0; value < Writers * Values; ++value)
        EXPECT_EQ(get(nameOf(value).c_str()), "written") << value;
    EXPECT_EQ(warnings(), QStringList());
}

// The writer stops where the file may not grow any more, is read there, with the lock in its hands, and is killed.
TEST_F(RegistryProcesses, AReaderOfAChangeThatItsWriterNeverFinishesWritesBehindTheLastWholeOne)
{
    set(u"x", "0");
    int cut = 0;
    for (rlim_t length = 1;; length += 4) {
        const rlim_t size = static_cast<rlim_t>(QFileInfo(hive()).size());
        const pid_t child = start([limit = size + length] {
            std::signal(SIGXFSZ, [](int) { raise(SIGSTOP); });
            const rlimit limits{limit, RLIM_INFINITY};
            return setrlimit(RLIMIT_FSIZE, &limits) == 0 && set(u"n", "12") == 0;
        });
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
        if (WIFEXITED(status))
            break; // there was room for all of it
        ASSERT_TRUE(WIFSTOPPED(status));
        ASSERT_EQ(static_cast<rlim_t>(QFileInfo(hive()).size()), size + length);
        const bool isWhole = contentOf(hive()).endsWith("; end"); // only the end of the line is missing
        restart();
        EXPECT_EQ(get(u"n"), isWhole ? "12" : "missing") << length;
        EXPECT_EQ(warnings(), QStringList());
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
        const QByteArray own = QByteArray::number(static_cast<int>(length));
        ASSERT_EQ(set(u"x", own), 0);
        restart();
        EXPECT_EQ(get(u"x"), own);
        EXPECT_EQ(get(u"n"), isWhole ? "12" : "missing") << length;
        EXPECT_EQ(warnings().isEmpty(), isWhole) << length;
        EXPECT_EQ(copies().size(), isWhole ? 0 : 1) << length;
        for (const QString &copy : copies())
            QFile::remove(QFileInfo(hive()).path() + u'/' + copy);
        warnings().clear();
        ++cut;
    }
    EXPECT_GE(cut, 10);
    EXPECT_EQ(get(u"n"), "12");
}

// Values are large enough for writes to be cut in the middle and for files to be written anew now and then.
TEST_F(RegistryProcesses, AWriterThatIsKilled200TimesLeavesAStoreThatCanBeReadWithAllThatItHadDone)
{
    constexpr int Kills = 200;
    SharedNumber done;
    std::mt19937 random(1);
    for (int kill = 0; kill < Kills; ++kill) {
        const pid_t child = start([&done] {
            for (int number = *done + 1;; ++number) {
                if (set(u"number", QByteArray::number(number)) != 0 || set(u"large", QByteArray(20'000, 'x')) != 0)
                    return false;
                *done = number;
            }
        });
        // Half of them die within their first changes, the others later.
        const int before = *done;
        while (kill % 2 == 0 && *done == before)
            usleep(100);
        usleep(std::uniform_int_distribution<useconds_t>(0, 15'000)(random));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        restart();
        const int number = get(u"number").toInt();
        ASSERT_GE(number, *done);
        ASSERT_LE(number, *done + 1);
        ASSERT_EQ(get(u"large"), *done > 0 ? QByteArray(20'000, 'x') : get(u"large"));
    }
    EXPECT_GE(*done, Kills / 2); // the writers did write
    for (const QString &warning : warnings())
        EXPECT_TRUE(warning.contains(u"the last change is not finished"_qs)) << warning.toStdString();
    std::printf("%d changes, %lld of them cut short\n", int(*done), static_cast<long long>(warnings().size()));
}
