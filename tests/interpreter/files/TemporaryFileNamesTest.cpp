#include "host/interpreter/files/TemporaryFileNames.h"

#include "tests/interpreter/files/TemporaryFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

bool looksLike(const std::optional<std::u16string> &name, const QString &pattern)
{
    const QString path = QDir::fromNativeSeparators(QString::fromStdU16String(name.value_or(u"nothing")));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(path).hasMatch();
}

class TemporaryFileNames : public testing::Test
{
protected:
    std::u16string folder() const { return m_folder.path().toStdU16String(); }
    QString escaped() const { return QRegularExpression::escape(m_folder.path()); }
    TemporaryFolder m_folder;
};

TEST_F(TemporaryFileNames, beginWithFiveCharactersOfThePattern)
{
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(u"longname.del", folder(), {}),
                          escaped() + QStringLiteral("/longn[0-9A-Z]{3}\\.del")));
    EXPECT_TRUE(
        looksLike(lisp::temporaryFileName({}, folder(), {}), escaped() + QStringLiteral("/\\$VL~~[0-9A-Z]{3}")));
}

TEST_F(TemporaryFileNames, takeFolderAndExtensionFromThePatternUnlessGiven)
{
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(folder() + u"/a.x", {}, {}),
                          escaped() + QStringLiteral("/a[0-9A-Z]{3}\\.x")));
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(u"/elsewhere/a.x", folder(), u"y"),
                          escaped() + QStringLiteral("/a[0-9A-Z]{3}\\.y")));
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(u"a.x", folder(), u""), escaped() + QStringLiteral("/a[0-9A-Z]{3}")));
}

TEST_F(TemporaryFileNames, useTheEnvironmentsFolder)
{
    qputenv("TEMP", "/nowhere");
    qputenv("TMP", m_folder.path().toLocal8Bit());
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(u"a", {}, {}), escaped() + QStringLiteral("/a[0-9A-Z]{3}")));
    qputenv("TEMP", m_folder.path().toLocal8Bit());
    qunsetenv("TMP");
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(u"a", {}, {}), escaped() + QStringLiteral("/a[0-9A-Z]{3}")));
    qunsetenv("TEMP");
    const QString system = QRegularExpression::escape(QDir::tempPath());
    EXPECT_TRUE(looksLike(lisp::temporaryFileName(u"a", {}, {}), system + QStringLiteral("/a[0-9A-Z]{3}")));
}

TEST_F(TemporaryFileNames, differEachTimeAndFromExistingFiles)
{
    const std::optional<std::u16string> first = lisp::temporaryFileName(u"a", folder(), {});
    const std::optional<std::u16string> second = lisp::temporaryFileName(u"a", folder(), {});
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_FALSE(QFileInfo::exists(QString::fromStdU16String(*first)));
}

TEST_F(TemporaryFileNames, needAnExistingFolder)
{
    EXPECT_EQ(lisp::temporaryFileName(u"a", folder() + u"/missing", {}), std::nullopt);
}

// The files of a process are deleted at its end: the child makes one, the parent looks. On Windows the child is a
// process that runs this test from its beginning, so both know the folder by its name.
TEST_F(TemporaryFileNames, standForFilesThatAreDeletedAtTheEnd)
{
    QDir shared(QDir::tempPath() + QStringLiteral("/lisp-temporary-file-names"));
    ASSERT_TRUE(shared.mkpath(QStringLiteral(".")));
    const auto make = [](const QString &path) { return QFile(path).open(QFile::WriteOnly); };
    EXPECT_EXIT(
        {
            const auto name = lisp::temporaryFileName(u"a", shared.path().toStdU16String(), {});
            const bool made = make(QString::fromStdU16String(*name)) && make(shared.filePath(QStringLiteral("other")));
            std::exit(made ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(shared.entryList(QDir::Files), QStringList{QStringLiteral("other")});
    shared.removeRecursively();
}

} // namespace
