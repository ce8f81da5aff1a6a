#include "sdk/fx/CFxString.h"

#include <gtest/gtest.h>

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

int compare(const char16_t *left, const char16_t *right)
{
    return sign(CFxString(left).compare(CFxString(right)));
}

int compareNoCase(const char16_t *left, const char16_t *right)
{
    return sign(CFxString(left).compareNoCase(CFxString(right)));
}

} // namespace

TEST(CFxString, DecodesAnsiTextAsWindows1252)
{
    EXPECT_EQ(CFxString::from_ansi_str("Caf\xe9 \x80 \x93x\x94 \xff").toQString(), u"Café € “x” ÿ"_qs);
    EXPECT_EQ(CFxString::from_ansi_str("\x81\x8d\x8f\x90\x9d").toQString(), u"\u0081\u008d\u008f\u0090\u009d"_qs);
    EXPECT_EQ(CFxString::from_ansi_str(nullptr).toQString(), QString());
}

TEST(CFxString, ReadsWhatEightBitTextLacksFromItsEscapes)
{
    EXPECT_EQ(CFxString::from_ansi_str("\\U+0416x\\U+D83D\\U+DE00").toQString(), u"\u0416x\U0001F600"_qs);
    for (const char *noEscape : {"\\U+041", "\\U+04g6", "\\u+0416", "\\U+-041", "\\U+"})
        EXPECT_EQ(CFxString::from_ansi_str(noEscape).toQString(), QString::fromLatin1(noEscape));
}

TEST(CFxString, TheAllocatedLengthCountsUnitsWithoutTheTerminator)
{
    EXPECT_EQ(CFxString(u"a\U0001F4D0").getAllocLength(), 3);
    EXPECT_EQ(CFxString().getAllocLength(), 0);
}

TEST(CFxString, GivesNulTerminatedUnits)
{
    EXPECT_EQ(std::u16string(CFxString(u"a\U0001F4D0").wide_strU()), u"a\U0001F4D0");
    EXPECT_EQ(std::u16string(CFxString().wide_strU()), u"");
    EXPECT_EQ(std::u16string(CFxString(static_cast<const char16_t *>(nullptr)).wide_strU()), u"");
}

TEST(CFxString, KeepsAByteOrderMarkInFront)
{
    EXPECT_EQ(CFxString(u"\ufeffa").toQString(), u"\ufeffa"_qs);
    EXPECT_EQ(CFxString(u"\ufffea").toQString(), u"\ufffea"_qs);
}

TEST(CFxString, CopiesAndMovesAsAValue)
{
    CFxString original(u"abc");
    CFxString copy = original;
    original.makeUpper();
    EXPECT_EQ(copy.toQString(), u"abc"_qs);
    EXPECT_EQ(original.toQString(), u"ABC"_qs);
    copy = std::move(original);
    EXPECT_EQ(copy.toQString(), u"ABC"_qs);
}

TEST(CFxString, ComparesUnitByUnit)
{
    EXPECT_EQ(compare(u"a", u"b"), -1);
    EXPECT_EQ(compare(u"b", u"a"), 1);
    EXPECT_EQ(compare(u"a", u"a"), 0);
    EXPECT_EQ(compare(u"a", u"ab"), -1);
    EXPECT_EQ(compare(u"Z", u"a"), -1);
    EXPECT_EQ(compare(u"\uE000", u"\U00010000"), 1);
}

TEST(CFxString, ComparesWithoutCaseByCodePointsFolded)
{
    EXPECT_EQ(compareNoCase(u"ABC", u"abc"), 0);
    EXPECT_EQ(compareNoCase(u"Σ", u"ς"), 0);
    EXPECT_EQ(compareNoCase(u"\U00010400", u"\U00010428"), 0);
    EXPECT_EQ(compareNoCase(u"İ", u"i"), 1) << "no language has a say";
    EXPECT_EQ(compareNoCase(u"ß", u"ss"), 1) << "one character for one";
    EXPECT_EQ(compareNoCase(u"B", u"a"), 1);
}

TEST(CFxString, KeepsUnpairedSurrogatesApart)
{
    const char16_t first[] = {u'a', 0xD800, 0};
    const char16_t second[] = {u'a', 0xD801, 0};
    EXPECT_EQ(compareNoCase(first, second), -1);
    EXPECT_EQ(std::u16string(CFxString(first).makeUpper().wide_strU()), (std::u16string{u'A', 0xD800}));
}

TEST(CFxString, MakesCapitalsOneForOne)
{
    EXPECT_EQ(CFxString(u"aä\U00010428ßŉ").makeUpper().toQString(), u"AÄ\U00010400ßŉ"_qs);
}

TEST(CFxString, MakesSmallLettersOneForOne)
{
    EXPECT_EQ(CFxString(u"AÄ\U00010400ẞİ").makeLower().toQString(), u"aä\U00010428ßİ"_qs);
}

TEST(CFxString, NoLetterChangesItsLengthWithItsCase)
{
    for (char32_t codePoint = 0; codePoint <= QChar::LastValidCodePoint; ++codePoint) {
        EXPECT_EQ(QChar::requiresSurrogates(QChar::toLower(codePoint)), QChar::requiresSurrogates(codePoint));
        EXPECT_EQ(QChar::requiresSurrogates(QChar::toUpper(codePoint)), QChar::requiresSurrogates(codePoint));
        EXPECT_EQ(QChar::requiresSurrogates(QChar::toCaseFolded(codePoint)), QChar::requiresSurrogates(codePoint));
    }
}

TEST(CFxString, FindsTheFirstOccurrenceCountedFrom0)
{
    EXPECT_EQ(CFxString(u"banana").find(CFxString(u"an")), 1);
    EXPECT_EQ(CFxString(u"banana").find(CFxString(u"AN")), -1);
    EXPECT_EQ(CFxString(u"banana").find(CFxString()), 0);
    EXPECT_EQ(CFxString().find(CFxString()), 0);
}
