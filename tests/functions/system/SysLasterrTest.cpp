#include "functions/system.h"

#include "functions/processes.h"
#include "tests/support/HandlerTest.h"

#include <QFile>

#include <cerrno>
#include <csignal>

namespace {

// Every operation of its host leaves an errno of its own behind.
class SysLasterr : public HandlerTest
{
protected:
    std::string lastError()
    {
        const Operations operations = call(acetSysLasterr, {});
        EXPECT_EQ(operations.size(), 1U);
        return operations.front();
    }
    Operations run(const QString &command)
    {
        host().setArguments({text(command)});
        host().setNarrowArgument(command.toStdString());
        EXPECT_EQ(acetSysCommand(), StatusNormal);
        return host().operations();
    }
};

} // namespace

TEST_F(SysLasterr, IsNoErrnoOfTheHostsOrOfQts)
{
    const std::string before = lastError();
    call(acetSysSleep, {shortInteger(1)});
    EXPECT_EQ(errno, EDOM); // the host's
    EXPECT_EQ(lastError(), before);
    EXPECT_FALSE(QFile(u"no such folder/file"_qs).open(QFile::ReadOnly));
    EXPECT_EQ(lastError(), before);
    errno = ENOENT;
    EXPECT_EQ(lastError(), before);
}

#ifndef _WIN32
// Where ended processes are taken no note of, the C library does not learn how the command ended.
TEST_F(SysLasterr, IsThatOfTheLastCommandThatTheRuntimeLibraryCouldNotRun)
{
    std::signal(SIGCHLD, SIG_IGN);
    const Operations failed = run(u"exit 0"_qs);
    std::signal(SIGCHLD, SIG_DFL);
    EXPECT_EQ(failed[3], "retInt -1");
    EXPECT_EQ(lastError(), "retInt " + std::to_string(ECHILD));
    EXPECT_EQ(run(u"exit 0"_qs)[3], "retInt 0"); // which does not say that nothing has failed before
    EXPECT_EQ(lastError(), "retInt " + std::to_string(ECHILD));
}
#endif
