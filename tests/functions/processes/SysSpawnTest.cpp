#include "functions/processes.h"

#include "tests/functions/processes/ProcessTest.h"

namespace {

class SysSpawn : public ProcessTest
{
protected:
    Argument arguments(const QString &rest) { return text(report + rest); }
};

} // namespace

TEST_F(SysSpawn, Mode2StartsTheProgramWithTheThreeArgumentsAndReturns32AtOnce)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(call(acetSysSpawn, {shortInteger(2), text(child), arguments(u",a,,b,wait:1500"_qs)}),
              (Operations{"getArgs", "retInt 32", "releaseRb 3"}));
    EXPECT_LT(timer.elapsed(), 1400);
    EXPECT_EQ(reportedArguments(), (QStringList{u"a"_qs, QString(), u"b"_qs, u"wait:1500"_qs}));
}

TEST_F(SysSpawn, Mode1WaitsForTheEnd)
{
    for (const std::int16_t mode : {1, 3}) {
        QFile::remove(report);
        EXPECT_EQ(call(acetSysSpawn, {shortInteger(mode), text(child), arguments(u",wait:200,exit:3"_qs)}),
                  (Operations{"getArgs", "retInt 32", "releaseRb 3"}));
        EXPECT_TRUE(QFile::exists(report));
    }
}

// The child takes its first argument for the report's file: it is named like the program itself.
TEST_F(SysSpawn, WithoutArgumentsTheProgramReceivesItsOwnNameAsItsOnlyArgument)
{
    const QString copy = report + u"-child"_qs;
#ifdef _WIN32
    const QString writtenReport = copy + u".part"_qs; // the file of a running program cannot be replaced
#else
    const QString writtenReport = copy;
#endif
    for (const Arguments &more : {Arguments{}, Arguments{shortInteger(5)}, Arguments{nil()}}) {
        QFile::remove(writtenReport);
        QFile::remove(copy);
        ASSERT_TRUE(QFile::copy(child, copy));
        Arguments all = {shortInteger(1), text(copy)};
        all.insert(all.end(), more.begin(), more.end());
        EXPECT_EQ(call(acetSysSpawn, all),
                  (Operations{"getArgs", "retInt 32", more.empty() ? "releaseRb null" : "releaseRb 3"}));
        QFile file(writtenReport); // it lists what came behind the first argument: nothing
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), QByteArray());
    }
}

TEST_F(SysSpawn, AnyOtherModeStartsTheProgramPrintsTheMessageAndGivesNoResult)
{
    for (const std::int16_t mode : {4, 0, -1}) {
        QFile::remove(report);
        EXPECT_EQ(call(acetSysSpawn, {shortInteger(mode), text(child), arguments(u",x"_qs)}),
                  (Operations{"getArgs", wrongType, "releaseRb 3"}));
        EXPECT_EQ(reportedArguments(), QStringList{u"x"_qs});
    }
}

TEST_F(SysSpawn, WhatIsNoProgramStartsNothingAndGivesNoResult)
{
    EXPECT_EQ(call(acetSysSpawn, {shortInteger(1), shortInteger(5)}), (Operations{"getArgs", "releaseRb null"}));
    EXPECT_EQ(call(acetSysSpawn, {shortInteger(1), nil(), text(u"a")}), (Operations{"getArgs", "releaseRb 3"}));
    EXPECT_EQ(call(acetSysSpawn, {shortInteger(1)}), (Operations{"getArgs", "releaseRb null"}));
}

TEST_F(SysSpawn, AModeThatIsNoIntegerPrintsTheCheckersMessageAndGivesNil)
{
    EXPECT_EQ(call(acetSysSpawn, {text(u"x"), text(child)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1", "retNil"}));
    EXPECT_EQ(call(acetSysSpawn, {}), (Operations{"getArgs", tooFewArguments, "retNil", "retNil"}));
}

TEST_F(SysSpawn, AProgramThatDoesNotStartGives32AllTheSame)
{
    for (const QString &program : {u"no-such-program"_qs, QString(), QString(32767, u'p')})
        EXPECT_EQ(call(acetSysSpawn, {shortInteger(1), text(program)}),
                  (Operations{"getArgs", "retInt 32", "releaseRb null"}));
}

TEST_F(SysSpawn, ATextOf32767CharactersReachesTheProgram)
{
    const QString rest(32767 - 1 - report.size(), u'x');
    EXPECT_EQ(call(acetSysSpawn, {shortInteger(1), text(child), arguments(u',' + rest)}),
              (Operations{"getArgs", "retInt 32", "releaseRb 3"}));
#ifndef _WIN32 // there the path of the program counts, too, and is too much
    EXPECT_EQ(reportedArguments(), QStringList{rest});
#endif
}

TEST_F(SysSpawn, TextsEndAtANul)
{
    const QString behind = QChar(u'\0') + u"b"_qs;
    EXPECT_EQ(call(acetSysSpawn, {shortInteger(1), text(child + behind), arguments(u",a"_qs + behind)}),
              (Operations{"getArgs", "retInt 32", "releaseRb 3"}));
    EXPECT_EQ(reportedArguments(), QStringList{u"a"_qs});
}
