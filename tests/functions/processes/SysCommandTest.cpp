#include "functions/processes.h"

#include "tests/functions/processes/ProcessTest.h"

namespace {

class SysCommand : public ProcessTest
{
protected:
    // Both lists have the same argument here: text for one, 8-bit text for the other.
    Operations callWith(const QString &command)
    {
        host().setArguments({text(command)});
        host().setNarrowArgument(command.toStdString());
        EXPECT_EQ(acetSysCommand(), StatusNormal);
        return host().operations();
    }

    const std::string m_environment = operation("getEnvVar", "COMSPEC") + " 0 0 511";
};

} // namespace

TEST_F(SysCommand, RunsTheCommandAndGivesWhatTheRuntimeLibraryGives)
{
    const QString command = child + u' ' + report + u" a exit:3"_qs;
    const int status = std::system((child + u" unused-report exit:3"_qs).toLocal8Bit().constData());
    QFile::remove(u"unused-report"_qs);
    EXPECT_EQ(callWith(command),
              (Operations{"getArgs", "getArgsNarrow", m_environment, "retInt " + std::to_string(status),
                          "releaseRbNarrow list", "releaseRb 1"}));
    EXPECT_EQ(reportedArguments(), (QStringList{u"a"_qs, u"exit:3"_qs}));
}

TEST_F(SysCommand, TheEmptyTextIsACommandToo)
{
    EXPECT_EQ(callWith(QString()),
              (Operations{"getArgs", "getArgsNarrow", m_environment, "retInt " + std::to_string(std::system("")),
                          "releaseRbNarrow list", "releaseRb 1"}));
}

#ifndef _WIN32 // whose command interpreter takes 8191 characters
TEST_F(SysCommand, ATextOf32767CharactersIsRunAsAWhole)
{
    const QString front = child + u' ' + report + u' ';
    const QString argument(32767 - front.size(), u'x');
    EXPECT_EQ(callWith(front + argument).at(3), "retInt 0");
    EXPECT_EQ(reportedArguments(), QStringList{argument});
}
#endif

TEST_F(SysCommand, WithoutCOMSPECTheCommandIsNotRunAndNoResultIsSet)
{
    host().setAnswer("getEnvVar", StatusError);
    EXPECT_EQ(callWith(child + u' ' + report),
              (Operations{"getArgs", "getArgsNarrow", m_environment, "releaseRbNarrow list", "releaseRb 1"}));
    EXPECT_FALSE(QFile::exists(report));
}

TEST_F(SysCommand, AMissingOrWrongCommandEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(acetSysCommand, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetSysCommand, {shortInteger(1)}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
