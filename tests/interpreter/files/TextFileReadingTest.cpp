#include "host/interpreter/files/TextFile.h"

#include "tests/interpreter/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using lisp::FileEncoding;
using lisp::FileMode;
using Lines = std::vector<std::u16string>;

class TextFileReading : public testing::Test
{
protected:
    std::unique_ptr<lisp::TextFile> open(const QByteArray &bytes, FileEncoding encoding = FileEncoding::Ansi)
    {
        return lisp::TextFile::open(m_folder.make(QStringLiteral("f"), bytes), FileMode::Read, encoding);
    }
    Lines lines(const QByteArray &bytes, FileEncoding encoding = FileEncoding::Ansi)
    {
        const auto file = open(bytes, encoding);
        Lines result;
        while (const std::optional<std::u16string> line = file->readLine())
            result.push_back(*line);
        EXPECT_EQ(file->readLine(), std::nullopt);
        return result;
    }
    TemporaryFolder m_folder;
};

TEST_F(TextFileReading, linesLoseTheirEnd)
{
    EXPECT_EQ(lines("a\r\nb\n\nc"), (Lines{u"a", u"b", u"", u"c"}));
    EXPECT_EQ(lines("a\n"), Lines{u"a"});
    EXPECT_EQ(lines(""), Lines{});
    EXPECT_EQ(lines("\n"), Lines{u""});
    EXPECT_EQ(lines("a\rb\r\r\n"), Lines{u"a\rb\r"});
    EXPECT_EQ(lines("a\r"), Lines{u"a\r"});
}

TEST_F(TextFileReading, theEncodingIsAnsiUnlessAskedOrMarked)
{
    EXPECT_EQ(lines("\xE4\x80"), Lines{u"\u00E4\u20AC"});
    EXPECT_EQ(lines("\xC3\xA4"), Lines{u"\u00C3\u00A4"});
    EXPECT_EQ(lines("\xC3\xA4", FileEncoding::Utf8), Lines{u"\u00E4"});
    EXPECT_EQ(lines("\xC3\xA4", FileEncoding::Utf8WithMark), Lines{u"\u00E4"});
    EXPECT_EQ(lines("\xEF\xBB\xBF\xC3\xA4"), Lines{u"\u00E4"});
    EXPECT_EQ(lines(QByteArray("\xFF\xFE\xE4\0\r\0\n\0b\0", 10)), (Lines{u"\u00E4", u"b"}));
    EXPECT_EQ(lines(QByteArray("\xFE\xFF\0a\0\n\0b", 8)), (Lines{u"a", u"b"}));
    EXPECT_EQ(lines("\xEF\xBB\xBF"), Lines{});
}

TEST_F(TextFileReading, longLinesAndManyLinesComeWhole)
{
    const QByteArray longLine(300'001, 'x');
    EXPECT_EQ(lines(longLine + "\r\nend"), (Lines{std::u16string(300'001, u'x'), u"end"}));
    // The carriage return is the last byte of one piece, the line feed the first of the next.
    EXPECT_EQ(lines(QByteArray(64 * 1024 - 1, 'x') + "\r\ny"), (Lines{std::u16string(64 * 1024 - 1, u'x'), u"y"}));
    EXPECT_EQ(lines(QByteArray("line\n").repeated(100'000)).size(), 100'000u);
}

TEST_F(TextFileReading, charactersComeOneByOneWithOneForALineEnd)
{
    const auto file = open("a\r\n\xE4\r");
    for (const char16_t unit : {u'a', u'\n', u'\u00E4', u'\r'})
        EXPECT_EQ(file->readCharacter(), unit);
    EXPECT_EQ(file->readCharacter(), std::nullopt);
    EXPECT_EQ(file->readCharacter(), std::nullopt);
}

TEST_F(TextFileReading, linesAndCharactersMayAlternate)
{
    const auto file = open("abc\ndef\nghi");
    EXPECT_EQ(file->readCharacter(), u'a');
    EXPECT_EQ(file->readLine(), u"bc");
    EXPECT_EQ(file->readCharacter(), u'd');
    EXPECT_EQ(file->readLine(), u"ef");
    EXPECT_EQ(file->readLine(), u"ghi");
    EXPECT_EQ(file->readCharacter(), std::nullopt);
}

TEST_F(TextFileReading, needsAnExistingFileThatIsNoFolder)
{
    const QString missing = m_folder.path(QStringLiteral("missing"));
    EXPECT_EQ(lisp::TextFile::open(missing, FileMode::Read, FileEncoding::Ansi), nullptr);
    EXPECT_EQ(lisp::TextFile::open(m_folder.path(), FileMode::Read, FileEncoding::Ansi), nullptr);
    EXPECT_EQ(lisp::TextFile::open(QString(), FileMode::Read, FileEncoding::Ansi), nullptr);
}

TEST(FileModeNames, areThreeInEitherCase)
{
    EXPECT_EQ(lisp::fileModeNamed(u"r"), FileMode::Read);
    EXPECT_EQ(lisp::fileModeNamed(u"W"), FileMode::Write);
    EXPECT_EQ(lisp::fileModeNamed(u"A"), FileMode::Append);
    for (const char16_t *name : {u"", u"x", u"rw", u"r "})
        EXPECT_EQ(lisp::fileModeNamed(name), std::nullopt);
}

TEST(FileEncodingNames, areAnsiUnlessUtf8)
{
    EXPECT_EQ(lisp::fileEncodingNamed(u"UTF8"), FileEncoding::Utf8);
    EXPECT_EQ(lisp::fileEncodingNamed(u"utf8-bom"), FileEncoding::Utf8WithMark);
    EXPECT_EQ(lisp::fileEncodingNamed(u""), FileEncoding::Ansi);
    EXPECT_EQ(lisp::fileEncodingNamed(u"latin"), FileEncoding::Ansi);
}

} // namespace
