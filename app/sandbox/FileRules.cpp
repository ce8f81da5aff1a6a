// See https://docs.kernel.org/userspace-api/landlock.html

#include "app/sandbox/FileRules.h"

#include "app/sandbox/Supervisor.h"

#include <QFile>

#include <cstdint>
#include <utility>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Later than the kernel headers of Debian 12.
constexpr std::uint64_t AccessTruncate = 1ULL << 14;                              // ABI 3
constexpr std::uint64_t ScopeAbstractSocket = 1ULL << 0, ScopeSignal = 1ULL << 1; // ABI 6
constexpr int TruncateAbi = 3, ScopeAbi = 6;

struct RulesetAttributes
{
    std::uint64_t files, network, scoped;
};

constexpr std::uint64_t ReadAccess = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t ExecuteAccess = LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_READ_FILE;
constexpr std::uint64_t EveryAccess = (LANDLOCK_ACCESS_FS_REFER << 1) - 1;
// No devices are made: who may open one uses it past all rules.
constexpr std::uint64_t WriteAccess =
    (EveryAccess | AccessTruncate) &
    ~std::uint64_t{LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_BLOCK};
// What a rule for a file, and not for a folder, may name.
constexpr std::uint64_t FileAccess =
    LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_WRITE_FILE | AccessTruncate;

class Descriptor
{
public:
    explicit Descriptor(long number) : m_number(static_cast<int>(number)) {}
    ~Descriptor()
    {
        if (isOpen())
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number;
};

void allow(const Descriptor &ruleset, const QString &path, std::uint64_t access)
{
    const Descriptor file(::open(QFile::encodeName(path).constData(), O_PATH | O_CLOEXEC));
    struct stat status
    {
    };
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return;
    landlock_path_beneath_attr rule{};
    rule.allowed_access = S_ISDIR(status.st_mode) ? access : access & FileAccess;
    rule.parent_fd = file.number();
    if (::syscall(SYS_landlock_add_rule, ruleset.number(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0) != 0)
        throw SandboxError(QStringLiteral("%1: cannot be allowed in the sandbox").arg(path));
}

} // namespace

QString lackForRules(const FileRules &rules, long abi)
{
    if (abi < TruncateAbi)
        return QStringLiteral("the sandbox needs a kernel with Landlock (Linux 6.2 or later)");
    if (abi < ScopeAbi && !rules.executable.empty())
        return QStringLiteral("to run programs in the sandbox needs Linux 6.12 or later, which can keep their signals "
                              "in (Landlock ABI 6)");
    return {};
}

void bindToFiles(const FileRules &rules)
{
    const long abi = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (const QString lack = lackForRules(rules, abi); !lack.isEmpty())
        throw SandboxError(lack);
    const std::uint64_t handled = EveryAccess | AccessTruncate;
    const RulesetAttributes attributes{handled, 0, abi >= ScopeAbi ? ScopeAbstractSocket | ScopeSignal : 0};
    const std::size_t size = abi >= ScopeAbi ? sizeof attributes : sizeof attributes.files;
    const Descriptor ruleset(::syscall(SYS_landlock_create_ruleset, &attributes, size, 0));
    if (!ruleset.isOpen())
        throw SandboxError(QStringLiteral("the kernel refuses the rules of the sandbox"));

    for (const QString &path : rules.readable)
        allow(ruleset, path, ReadAccess);
    for (const QString &path : rules.writable)
        allow(ruleset, path, WriteAccess);
    for (const QString &path : rules.executable)
        allow(ruleset, path, ExecuteAccess);
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::syscall(SYS_landlock_restrict_self, ruleset.number(), 0) != 0)
        throw SandboxError(QStringLiteral("the kernel refuses to enter the sandbox"));
}
