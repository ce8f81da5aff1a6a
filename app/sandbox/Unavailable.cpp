// Where the kernel has no means that the sandbox could use.

#include "app/sandbox/InheritedFiles.h"
#include "app/sandbox/Sandbox.h"
#include "app/sandbox/Supervisor.h"
#include "app/sandbox/TimeLimit.h"

namespace {

SandboxError noSandbox()
{
    return SandboxError(QStringLiteral("--sandbox needs Linux: there is no sandbox on this system"));
}

} // namespace

void closeInheritedFiles(const QStringList &)
{
    throw noSandbox();
}

int superviseInOwnFolders(int, const std::function<int(const SandboxFolders &folders)> &)
{
    throw noSandbox();
}

void enterSandbox(const SandboxOptions &, const QStringList &, const QString &)
{
    throw noSandbox();
}

void interruptAfter(int)
{
    throw noSandbox();
}
