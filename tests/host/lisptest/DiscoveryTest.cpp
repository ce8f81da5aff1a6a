// Which files and functions are tests.

#include "host/lisptest/Discovery.h"

#include "host/interpreter/Builtins.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using lisptest::testFiles;
using lisptest::testFunctions;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

TEST(Discovery, AFileIsTakenWhateverItsName)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("anything.txt"));
    QFile(path).open(QIODevice::WriteOnly);
    QString failure;
    EXPECT_EQ(testFiles(path, failure), QStringList{path});
}

TEST(Discovery, InFoldersTheNameOfAFileSaysWhetherItHoldsTests)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("b/test.lsp")));
    for (const char *name : {"c-test.lsp", "b/TESTS.LSP", "b/test.lsp/test-a.lsp", "b/program.lsp", "latest.lsp",
                             "testimony.lsp", "test.txt"})
        ASSERT_TRUE(QFile(folder.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly)) << name;
    QString failure;
    const std::optional<QStringList> files = testFiles(folder.path(), failure);
    ASSERT_TRUE(files);
    QStringList names;
    for (const QString &file : *files)
        names.append(QDir(folder.path()).relativeFilePath(file));
    EXPECT_EQ(names, QStringList({QStringLiteral("b/TESTS.LSP"), QStringLiteral("b/test.lsp/test-a.lsp"),
                                  QStringLiteral("c-test.lsp")}));
}

TEST(Discovery, APathThatLeadsNowhereSaysSo)
{
    QString failure;
    EXPECT_FALSE(testFiles(QStringLiteral("/missing/folder"), failure));
    EXPECT_EQ(failure, QStringLiteral("/missing/folder: no such file or folder"));
}

struct Functions : ::testing::Test
{
    std::vector<std::u16string> namesIn(std::u16string_view source)
    {
        lisp::defineBuiltins(machine);
        machine.load(source, u"t.lsp");
        return testFunctions(machine, u"t.lsp");
    }

    lisp::Machine machine;
};

TEST_F(Functions, AreInTheOrderOfTheFile)
{
    EXPECT_THAT(namesIn(u"(defun test-b () 1)\n(defun TEST_a (/ x) 1)\n(defun test:c () 1)"),
                ElementsAre(u"TEST-B", u"TEST_A", u"TEST:C"));
}

TEST_F(Functions, WithParametersOrOtherNamesAreNone)
{
    EXPECT_THAT(namesIn(u"(defun test-of (n) 1) (defun tester () 1) (defun test () 1) (defun test- () 1)"), IsEmpty());
}

TEST_F(Functions, OfOtherFilesAndOtherNamesForOneAreNone)
{
    lisp::defineBuiltins(machine);
    machine.load(u"(defun test-other () 1)", u"other.lsp");
    machine.load(u"(setq test-alias car) (defun helper () 1) (setq test-it helper)", u"t.lsp");
    EXPECT_THAT(testFunctions(machine, u"t.lsp"), IsEmpty());
}

TEST_F(Functions, ThatWereDefinedOverCountOnce)
{
    EXPECT_THAT(namesIn(u"(defun test-a () 1) (defun test-a () 2) (defun test-b () 1) (setq test-b nil)"),
                ElementsAre(u"TEST-A"));
}

} // namespace
