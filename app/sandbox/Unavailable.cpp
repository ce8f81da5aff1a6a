// Where the kernel has no means that the sandbox could use.

#include "app/sandbox/Sandbox.h"
#include "app/sandbox/Supervisor.h"
#include "app/sandbox/TimeLimit.h"

int superviseInTemporaryFolder(const std::function<int(const QString &folder)> &)
{
    throw SandboxError(QStringLiteral("there is no sandbox on this system"));
}

void enterSandbox(const SandboxOptions &, const QStringList &, const QString &)
{
    throw SandboxError(QStringLiteral("there is no sandbox on this system"));
}

void interruptAfter(int)
{
    throw SandboxError(QStringLiteral("there is no sandbox on this system"));
}
