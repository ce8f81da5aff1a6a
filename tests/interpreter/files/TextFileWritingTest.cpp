#include "host/interpreter/files/TextFile.h"

#include "tests/interpreter/files/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using lisp::FileEncoding;
using lisp::FileMode;

#ifdef Q_OS_WIN
constexpr char LineEnd[] = "\r\n";
#else
constexpr char LineEnd[] = "\n";
#endif

class TextFileWriting : public testing::Test
{
protected:
    QByteArray written(FileMode mode, FileEncoding encoding, std::initializer_list<std::u16string_view> pieces)
    {
        const auto file = lisp::TextFile::open(m_folder.path(m_name), mode, encoding);
        for (const std::u16string_view piece : pieces)
            EXPECT_TRUE(file->write(piece));
        EXPECT_TRUE(file->close());
        return m_folder.bytes(m_name);
    }
    TemporaryFolder m_folder;
    QString m_name = QStringLiteral("f");
};

TEST_F(TextFileWriting, replacesAnExistingFile)
{
    m_folder.make(m_name, "a long text that was there");
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Ansi, {u"a\n", u"b"}), QByteArray("a") + LineEnd + "b");
}

TEST_F(TextFileWriting, appendsOrMakesTheFile)
{
    EXPECT_EQ(written(FileMode::Append, FileEncoding::Ansi, {u"1"}), "1");
    EXPECT_EQ(written(FileMode::Append, FileEncoding::Ansi, {u"2"}), "12");
}

TEST_F(TextFileWriting, encodesAsItIsTold)
{
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Ansi, {u"\u00E4\u20AC\u4E2D"}), "\xE4\x80\\U+4E2D");
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Utf8, {u"\u00E4\u20AC"}), "\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Utf8WithMark, {u"\u00E4"}), "\xEF\xBB\xBF\xC3\xA4");
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Utf8WithMark, {}), "\xEF\xBB\xBF");
}

TEST_F(TextFileWriting, marksAnAppendedFileOnlyAtItsBeginning)
{
    EXPECT_EQ(written(FileMode::Append, FileEncoding::Utf8WithMark, {u"a"}), "\xEF\xBB\xBF"
                                                                             "a");
    EXPECT_EQ(written(FileMode::Append, FileEncoding::Utf8WithMark, {u"b"}), "\xEF\xBB\xBF"
                                                                             "ab");
}

TEST_F(TextFileWriting, aSurrogatePairMayComeInTwoPieces)
{
    const std::u16string pair = u"\U0001F600";
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Utf8, {pair.substr(0, 1), pair.substr(1)}), "\xF0\x9F\x98\x80");
}

TEST_F(TextFileWriting, anUnpairedSurrogateIsReplaced)
{
    const std::u16string low(1, char16_t(0xDC00)), high(1, char16_t(0xD83D));
    EXPECT_EQ(written(FileMode::Write, FileEncoding::Utf8, {low, u"a", high, u"b"}), "\xEF\xBF\xBD"
                                                                                     "a\xEF\xBF\xBD"
                                                                                     "b");
}

TEST_F(TextFileWriting, reachesTheFileWithoutClose)
{
    lisp::TextFile::open(m_folder.path(m_name), FileMode::Write, FileEncoding::Ansi)->write(u"kept");
    EXPECT_EQ(m_folder.bytes(m_name), "kept");
}

TEST_F(TextFileWriting, needsAFolderAndAName)
{
    for (const QString &path : {m_folder.path(), m_folder.path(QStringLiteral("missing/f")), QString()})
        for (const FileMode mode : {FileMode::Write, FileMode::Append})
            EXPECT_EQ(lisp::TextFile::open(path, mode, FileEncoding::Ansi), nullptr) << path.toStdString();
}

#ifdef Q_OS_LINUX
TEST(TextFileOnAFullDisk, reportsTheFailureAtClose)
{
    const auto file = lisp::TextFile::open(QStringLiteral("/dev/full"), FileMode::Append, FileEncoding::Ansi);
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->write(u"a little"));
    EXPECT_FALSE(file->close());
    EXPECT_FALSE(file->close());
}

TEST(TextFileOnAFullDisk, reportsTheFailureOfALargeWriteAtOnce)
{
    const auto file = lisp::TextFile::open(QStringLiteral("/dev/full"), FileMode::Append, FileEncoding::Ansi);
    EXPECT_FALSE(file->write(std::u16string(1'000'000, u'x')));
    EXPECT_FALSE(file->close());
}
#endif

} // namespace
