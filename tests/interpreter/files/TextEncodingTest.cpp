#include "host/interpreter/files/TextEncoding.h"

#include <gtest/gtest.h>

namespace {

using lisp::TextEncoding;

std::u16string decoded(TextEncoding encoding, std::initializer_list<QByteArray> pieces)
{
    lisp::TextDecoder decoder(encoding);
    std::u16string text;
    for (const QByteArray &piece : pieces)
        decoder.append(text, piece);
    return text;
}

TEST(TextEncoding, windows1252GoesToUnicodeAndBackForEveryByte)
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    const std::u16string text = decoded(TextEncoding::Windows1252, {bytes});
    ASSERT_EQ(text.size(), 256u);
    EXPECT_EQ(text[0x80], u'\u20AC');
    EXPECT_EQ(text[0x9F], u'\u0178');
    EXPECT_EQ(text[0xE4], u'\u00E4');
    EXPECT_EQ(lisp::encodedAsWindows1252(text), bytes);
}

TEST(TextEncoding, aCharacterThatTheCodePageLacksIsSpelledOut)
{
    EXPECT_EQ(lisp::encodedAsWindows1252(u"a\u4E2Db"), "a\\U+4E2Db");
    EXPECT_EQ(lisp::encodedAsWindows1252(u"\u0100"), "\\U+0100");
    EXPECT_EQ(lisp::encodedAsWindows1252(u"\U0001F600"), "\\U+D83D\\U+DE00");
}

TEST(TextEncoding, aCharacterMayBeSplitBetweenPieces)
{
    EXPECT_EQ(decoded(TextEncoding::Utf8, {"x\xE2", "\x82", "\xACy"}), u"x\u20ACy");
    EXPECT_EQ(decoded(TextEncoding::Utf16LittleEndian, {QByteArray("a\0b", 3), QByteArray("\0", 1)}), u"ab");
    EXPECT_EQ(decoded(TextEncoding::Utf16BigEndian, {QByteArray("\x20", 1), QByteArray("\xAC", 1)}), u"\u20AC");
}

TEST(TextEncoding, whatIsNoCharacterIsReplaced)
{
    EXPECT_EQ(decoded(TextEncoding::Utf8, {"a\xFF"
                                           "b"}),
              u"a\uFFFDb");
}

TEST(TextEncoding, byteOrderMarksAreKnown)
{
    EXPECT_EQ(lisp::byteOrderMark("\xEF\xBB\xBFx")->encoding, TextEncoding::Utf8);
    EXPECT_EQ(lisp::byteOrderMark("\xFF\xFEx")->encoding, TextEncoding::Utf16LittleEndian);
    EXPECT_EQ(lisp::byteOrderMark("\xFE\xFFx")->encoding, TextEncoding::Utf16BigEndian);
    EXPECT_FALSE(lisp::byteOrderMark("x"));
    EXPECT_FALSE(lisp::byteOrderMark("\xEF\xBB"));
    EXPECT_FALSE(lisp::byteOrderMark(""));
}

} // namespace
