#include "host/interpreter/files/SourceFile.h"

#include "tests/interpreter/files/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(DecodeSource, takesValidUtf8AsUtf8)
{
    EXPECT_EQ(lisp::decodeSource("(princ \"\xC3\xA4\")"), u"(princ \"\u00E4\")");
    EXPECT_EQ(lisp::decodeSource(""), u"");
}

TEST(DecodeSource, takesOtherBytesAsWindows1252)
{
    EXPECT_EQ(lisp::decodeSource("\xE4\x80"), u"\u00E4\u20AC");
}

TEST(DecodeSource, obeysAByteOrderMarkAndLeavesItOut)
{
    EXPECT_EQ(lisp::decodeSource("\xEF\xBB\xBF(a)"), u"(a)");
    EXPECT_EQ(lisp::decodeSource(QByteArrayView("\xFF\xFE(\0\xAC\x20", 6)), u"(\u20AC");
    EXPECT_EQ(lisp::decodeSource(QByteArrayView("\xFE\xFF\0(\x20\xAC", 6)), u"(\u20AC");
    EXPECT_EQ(lisp::decodeSource("\xEF\xBB\xBF"), u"");
}

class ReadSourceFile : public testing::Test
{
protected:
    QString failureOf(const QString &path)
    {
        QString failure;
        EXPECT_EQ(lisp::readSourceFile(path, failure), std::nullopt);
        return failure;
    }
    TemporaryFolder m_folder;
};

TEST_F(ReadSourceFile, givesTheText)
{
    QString failure;
    EXPECT_EQ(lisp::readSourceFile(m_folder.make(QStringLiteral("a b.lsp"), "(a)\n"), failure), u"(a)\n");
    EXPECT_EQ(lisp::readSourceFile(m_folder.make(QStringLiteral("empty"), ""), failure), u"");
    const QByteArray utf16("\xFF\xFE(\0)\0", 6);
    EXPECT_EQ(lisp::readSourceFile(m_folder.make(QStringLiteral("wide"), utf16), failure), u"()");
    EXPECT_EQ(failure, QString());
}

TEST_F(ReadSourceFile, tellsWhyThereIsNone)
{
    const QString missing = m_folder.path(QStringLiteral("missing.lsp"));
    EXPECT_EQ(failureOf(missing), missing + QStringLiteral(": no such file"));
    EXPECT_EQ(failureOf(m_folder.path()), m_folder.path() + QStringLiteral(": is a folder"));
    const QString binary = m_folder.make(QStringLiteral("binary"), QByteArray("\x7F"
                                                                              "ELF\0\1",
                                                                              6));
    EXPECT_EQ(failureOf(binary), binary + QStringLiteral(": is not a text file"));
}

#ifdef Q_OS_LINUX
TEST_F(ReadSourceFile, reportsAFileThatFailsWhileItIsRead)
{
    // The memory of this process, whose first page can never be read: opening works, reading does not.
    EXPECT_TRUE(failureOf(QStringLiteral("/proc/self/mem")).startsWith(QStringLiteral("/proc/self/mem: ")));
}
#endif

} // namespace
