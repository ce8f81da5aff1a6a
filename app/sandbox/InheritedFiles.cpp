#include "app/sandbox/InheritedFiles.h"

#include "app/sandbox/Supervisor.h"

#include <QRegularExpression>

#include <algorithm>
#include <set>

#include <linux/close_range.h>
#include <unistd.h>

namespace {

constexpr unsigned FirstInherited = STDERR_FILENO + 1, Last = ~0U;

std::set<unsigned> descriptorsIn(const QStringList &paths)
{
    static const QRegularExpression form(QStringLiteral("^/(?:dev|proc/self)/fd/([0-9]+)$"));
    std::set<unsigned> descriptors;
    for (const QString &path : paths)
        if (const auto match = form.match(path); match.hasMatch())
            descriptors.insert(match.captured(1).toUInt());
    return descriptors;
}

void closeRange(unsigned first, unsigned last, int flags)
{
    if (first <= last && ::close_range(first, last, flags) != 0)
        throw SandboxError(QStringLiteral("the kernel refuses to close the files that the sandbox was started with"));
}

} // namespace

void closeInheritedFiles(const QStringList &paths)
{
    unsigned next = FirstInherited;
    for (const unsigned kept : descriptorsIn(paths)) {
        if (kept < next)
            continue;
        if (kept > next)
            closeRange(next, kept - 1, 0);
        next = kept + 1;
    }
    closeRange(next, Last, 0);
    closeRange(FirstInherited, Last, CLOSE_RANGE_CLOEXEC);
}
