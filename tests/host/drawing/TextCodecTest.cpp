#include "host/drawing/TextCodec.h"

#include <gtest/gtest.h>

namespace drawing {
namespace {

const TextCodec &western()
{
    static const TextCodec codec(CodePage::named("ANSI_1252"));
    return codec;
}

TEST(TextCodec, DecodesTheCodePageOfTheDrawing)
{
    EXPECT_EQ(western().decode("T\xFCr \x80"), u"Tür €");
    EXPECT_EQ(TextCodec(CodePage::named("ansi_1251")).decode("\xC4\xEE\xEC"), u"Дом");
    EXPECT_EQ(TextCodec(CodePage::named("ANSI_932")).decode("\x83\x56 \x83\x7D"), u"シ マ");
    EXPECT_EQ(TextCodec(CodePage::named("dos850")).decode("\x81"), u"ü");
    EXPECT_EQ(TextCodec(CodePage::named("8859_7")).decode("\xE1"), u"α");
}

TEST(TextCodec, AnUnknownCodePageIsTakenForTheWesternOne)
{
    EXPECT_EQ(TextCodec(CodePage::named("ANSI_99999")).decode("\xFC"), u"ü");
    EXPECT_EQ(TextCodec(CodePage::named("")).decode("\xFC"), u"ü");
}

TEST(TextCodec, EncodesWhatTheCodePageLacksAsAnEscape)
{
    EXPECT_EQ(western().encode(u"Tür Дом"), "T\xFCr \\U+0414\\U+043E\\U+043C");
    EXPECT_EQ(western().decode("\\U+0414\\U+043E\\u+0043"), u"До\\u+0043");
    EXPECT_EQ(western().decode("\\U+12"), u"\\U+12");
    EXPECT_EQ(western().encode(u"\U0001F600"), "\\U+D83D\\U+DE00");
}

TEST(TextCodec, LaterDrawingsAreUtf8)
{
    const TextCodec codec;
    EXPECT_EQ(codec.decode("T\xC3\xBCr \xF0\x9F\x98\x80 \\U+00B0"), u"Tür \U0001F600 °");
    EXPECT_EQ(codec.encode(u"Tür \U0001F600"), "T\xC3\xBCr \xF0\x9F\x98\x80");
}

TEST(TextCodec, BytesThatAreNoCharactersComeBackAsTheyWere)
{
    const TextCodec codec;
    for (const std::string bytes : {"a\xFF\x80z", "\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF5\x80\x80\x80"})
        EXPECT_EQ(codec.encode(codec.decode(bytes)), bytes);
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(western().encode(western().decode(bytes)), bytes) << byte;
    }
}

TEST(TextCodec, ControlCharactersStandWithACaret)
{
    EXPECT_EQ(western().decode("a^Jb^Ic^ d^xe^"), u"a\nb\tc^d^xe^");
    EXPECT_EQ(western().encode(u"a\nb\tc^d"), "a^Jb^Ic^ d");
}

TEST(Folded, NamesThatDifferInCaseAreEqual)
{
    EXPECT_EQ(folded(u"WÄNDE"), folded(u"wände"));
    EXPECT_NE(folded(u"Wand"), folded(u"Wände"));
}

} // namespace
TEST(TextCodec, PlainIsWhatHasNoSpecialByteAnywhere)
{
    for (std::size_t length = 0; length < 40; ++length)
        for (int byte = 0; byte < 256; ++byte) {
            const bool isSpecial = byte == '^' || byte == '\\' || byte >= 0x80;
            for (std::size_t place = 0; place < length; ++place) {
                std::string text(length, 'x');
                text[place] = static_cast<char>(byte);
                ASSERT_EQ(TextCodec::isPlain(text), !isSpecial) << length << ' ' << byte << ' ' << place;
            }
        }
    EXPECT_TRUE(TextCodec::isPlain({}));
}

TEST(TextCodec, KnowsWhetherBytesDecodeToATextWithoutDecodingThem)
{
    const TextCodec codec;
    EXPECT_TRUE(codec.decodesTo("AcDbEntity", u"AcDbEntity"));
    EXPECT_FALSE(codec.decodesTo("AcDbEntity", u"AcDbEntitY"));
    EXPECT_FALSE(codec.decodesTo("AcDbEntity", u"AcDbEntit"));
    EXPECT_FALSE(codec.decodesTo("A", u"\u0141"));
    EXPECT_TRUE(codec.decodesTo("", u""));
    EXPECT_TRUE(codec.decodesTo("1^J2", u"1\n2"));
    EXPECT_FALSE(codec.decodesTo("1^J2", u"1^J2"));
}

} // namespace drawing
