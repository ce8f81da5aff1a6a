#include "host/interpreter/files/FileOperations.h"

#include "tests/interpreter/files/TemporaryFolder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

using lisp::CopyMode;
using lisp::DirectoryListing;
using Names = std::vector<std::u16string>;

class FileOperations : public testing::Test
{
protected:
    QString at(const char *name) const { return m_folder.path(QString::fromLatin1(name)); }
    QString make(const char *name, const QByteArray &bytes) const
    {
        return m_folder.make(QString::fromLatin1(name), bytes);
    }
    QByteArray bytes(const char *name) const { return m_folder.bytes(QString::fromLatin1(name)); }
    TemporaryFolder m_folder;
};

TEST_F(FileOperations, copyGivesTheNumberOfBytes)
{
    const QByteArray content(700'001, 'x');
    EXPECT_EQ(lisp::copyFile(make("a", content), at("b"), CopyMode::NewFile), 700'001);
    EXPECT_EQ(bytes("b"), content);
    EXPECT_EQ(lisp::copyFile(make("empty", ""), at("c"), CopyMode::NewFile), 0);
    EXPECT_EQ(bytes("c"), "");
}

TEST_F(FileOperations, copyNeverOverwrites)
{
    EXPECT_EQ(lisp::copyFile(make("a", "new"), make("b", "old"), CopyMode::NewFile), std::nullopt);
    EXPECT_EQ(bytes("b"), "old");
}

TEST_F(FileOperations, copyAppends)
{
    EXPECT_EQ(lisp::copyFile(make("a", "123"), make("b", "old"), CopyMode::Append), 3);
    EXPECT_EQ(bytes("b"), "old123");
    EXPECT_EQ(lisp::copyFile(at("a"), at("made"), CopyMode::Append), 3);
    EXPECT_EQ(bytes("made"), "123");
}

TEST_F(FileOperations, copyRefusesFoldersMissingFilesAndTheFileItself)
{
    make("a", "123");
    EXPECT_EQ(lisp::copyFile(m_folder.path(), at("b"), CopyMode::NewFile), std::nullopt);
    EXPECT_EQ(lisp::copyFile(at("missing"), at("b"), CopyMode::NewFile), std::nullopt);
    EXPECT_EQ(lisp::copyFile(at("a"), at("missing/b"), CopyMode::NewFile), std::nullopt);
    EXPECT_EQ(lisp::copyFile(at("a"), at("./a"), CopyMode::Append), std::nullopt);
    EXPECT_EQ(lisp::copyFile(at("a"), m_folder.path(), CopyMode::Append), std::nullopt);
    EXPECT_EQ(bytes("a"), "123");
    EXPECT_FALSE(QFileInfo::exists(at("b")));
}

#ifdef Q_OS_LINUX
TEST_F(FileOperations, copyThatCannotReadToTheEndLeavesNoFile)
{
    EXPECT_EQ(lisp::copyFile(QStringLiteral("/proc/self/mem"), at("b"), CopyMode::NewFile), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(at("b")));
    EXPECT_EQ(lisp::copyFile(QStringLiteral("/proc/self/mem"), make("c", "old"), CopyMode::Append), std::nullopt);
    EXPECT_EQ(bytes("c"), "old");
}

TEST_F(FileOperations, copyToAFullDiskFails)
{
    EXPECT_EQ(lisp::copyFile(make("a", "123"), QStringLiteral("/dev/full"), CopyMode::Append), std::nullopt);
}
#endif

TEST_F(FileOperations, renameMovesButNeverOverwrites)
{
    EXPECT_TRUE(lisp::renameFile(make("a", "1"), at("b")));
    EXPECT_EQ(bytes("b"), "1");
    EXPECT_FALSE(QFileInfo::exists(at("a")));
    EXPECT_FALSE(lisp::renameFile(at("b"), make("c", "2")));
    EXPECT_EQ(bytes("c"), "2");
    EXPECT_FALSE(lisp::renameFile(at("missing"), at("d")));
}

TEST_F(FileOperations, deleteTakesFilesOnly)
{
    EXPECT_TRUE(lisp::deleteFile(make("a", "1")));
    EXPECT_FALSE(QFileInfo::exists(at("a")));
    EXPECT_FALSE(lisp::deleteFile(at("a")));
    EXPECT_FALSE(lisp::deleteFile(m_folder.path()));
    EXPECT_TRUE(lisp::isDirectory(m_folder.path()));
}

TEST_F(FileOperations, sizeAndTimeOfFilesAndFolders)
{
    EXPECT_EQ(lisp::fileSize(make("a", "123")), 3);
    EXPECT_EQ(lisp::fileSize(m_folder.path()), 0);
    EXPECT_EQ(lisp::fileSize(at("missing")), std::nullopt);
    EXPECT_EQ(lisp::fileSize(QString()), std::nullopt);
    EXPECT_EQ(lisp::fileTime(at("missing")), std::nullopt);
    EXPECT_EQ(lisp::fileTime(QString()), std::nullopt);
    QFile file(at("a"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime time(QDate(1998, 4, 8), QTime(10, 6, 52));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    EXPECT_EQ(lisp::fileTime(at("a")), time);
}

TEST_F(FileOperations, makeDirectoryMakesOneLevel)
{
    EXPECT_TRUE(lisp::makeDirectory(at("d")));
    EXPECT_TRUE(lisp::isDirectory(at("d")));
    EXPECT_FALSE(lisp::makeDirectory(at("d")));
    EXPECT_FALSE(lisp::makeDirectory(at("x/y")));
    EXPECT_FALSE(lisp::isDirectory(make("f", "")));
    EXPECT_FALSE(lisp::isDirectory(QString()));
}

TEST_F(FileOperations, noneTakesAnEmptyName)
{
    const QString none, file = make("a", "1");
    EXPECT_EQ(lisp::copyFile(none, at("b"), CopyMode::NewFile), std::nullopt);
    EXPECT_EQ(lisp::copyFile(file, none, CopyMode::NewFile), std::nullopt);
    EXPECT_FALSE(lisp::renameFile(none, at("b")));
    EXPECT_FALSE(lisp::renameFile(file, none));
    EXPECT_FALSE(lisp::deleteFile(none));
    EXPECT_FALSE(lisp::makeDirectory(none));
    EXPECT_EQ(bytes("a"), "1");
}

TEST_F(FileOperations, directoryFilesListsByKindAndPattern)
{
    for (const char *name : {"b.DXF", "A.dxf", "a.txt", "plain", ".hidden", "x[1].dxf"})
        make(name, "");
    lisp::makeDirectory(at("Sub.dxf"));
    const auto list = [this](std::u16string_view pattern, DirectoryListing listing) {
        return lisp::directoryFiles(m_folder.path(), pattern, listing);
    };
    EXPECT_EQ(list(u"*.dxf", DirectoryListing::Files), (Names{u"A.dxf", u"b.DXF", u"x[1].dxf"}));
    EXPECT_EQ(list(u"*.dxf", DirectoryListing::All), (Names{u"A.dxf", u"b.DXF", u"Sub.dxf", u"x[1].dxf"}));
    EXPECT_EQ(list(u"*.*", DirectoryListing::Directories), (Names{u".", u"..", u"Sub.dxf"}));
    EXPECT_EQ(list(u"*.*", DirectoryListing::Files),
              (Names{u".hidden", u"A.dxf", u"a.txt", u"b.DXF", u"plain", u"x[1].dxf"}));
    EXPECT_EQ(list(u"?.DXF", DirectoryListing::Files), (Names{u"A.dxf", u"b.DXF"}));
    EXPECT_EQ(list(u"x[1]*", DirectoryListing::Files), (Names{u"x[1].dxf"}));
    EXPECT_EQ(list(u"~*,#", DirectoryListing::All), Names{});
}

#ifndef _WIN32
TEST_F(FileOperations, directoryFilesTakesSpecialFilesForFiles)
{
    ASSERT_EQ(mkfifo(qPrintable(at("pipe")), 0600), 0);
    const auto list = [this](DirectoryListing listing) { return lisp::directoryFiles(m_folder.path(), u"*", listing); };
    EXPECT_EQ(list(DirectoryListing::Directories), (Names{u".", u".."}));
    EXPECT_EQ(list(DirectoryListing::Files), (Names{u"pipe"}));
}
#endif

TEST_F(FileOperations, directoryFilesOfNoFolderIsNothing)
{
    EXPECT_EQ(lisp::directoryFiles(at("missing"), u"*", DirectoryListing::All), std::nullopt);
    EXPECT_EQ(lisp::directoryFiles(make("f", ""), u"*", DirectoryListing::All), std::nullopt);
}

} // namespace
