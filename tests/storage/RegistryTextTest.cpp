#include "storage/RegistryText.h"
#include "storage/RegistryTextWriter.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

// Writes down what it is told.
class Recorder final : public RegistryTextReceiver
{
public:
    void addKey(std::u16string_view path) override { note("[" + utf8(path) + "]"); }
    void removeKey(std::u16string_view path) override { note("[-" + utf8(path) + "]"); }
    void setValue(std::u16string_view name, std::uint32_t type, const QByteArray &data) override
    {
        note(utf8(name) + "=" + std::to_string(type) + ":" + data.toHex().toStdString());
    }
    void removeValue(std::u16string_view name) override { note(utf8(name) + "=-"); }

    std::string notes;

private:
    static std::string utf8(std::u16string_view text) { return QStringView(text).toString().toStdString(); }
    void note(const std::string &words) { notes += (notes.empty() ? "" : " ") + words; }
};

constexpr char16_t Start[] = u"Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\A]\n";

std::string describe(const std::vector<RegistryTextError> &errors)
{
    std::string text;
    for (const RegistryTextError &error : errors)
        text += std::to_string(error.line) + ": " + error.reason.toStdString() + "\n";
    return text;
}

// What a text says below the key A.
std::string valuesOf(const std::u16string &lines)
{
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryText(Start + lines, recorder)), "");
    return recorder.notes.substr(std::string("[HKEY_CURRENT_USER\\A]").size());
}

// What is wrong with it; the first of the lines is line 4.
std::string errorsOf(const std::u16string &lines)
{
    Recorder recorder;
    return describe(readRegistryText(Start + lines, recorder));
}

std::u16string decodeLatin1(QByteArrayView bytes)
{
    return QString::fromLatin1(bytes).toStdU16String();
}

} // namespace

TEST(RegistryText, ReadsValuesOfAllForms)
{
    EXPECT_EQ(valuesOf(u"@=\"a\""), " =1:61000000");
    EXPECT_EQ(valuesOf(u"\"n\"=\"\""), " n=1:0000");
    EXPECT_EQ(valuesOf(u"\"n\"=dword:0000002A"), " n=4:2a000000");
    EXPECT_EQ(valuesOf(u"\"n\"=dword:1"), " n=4:01000000");
    EXPECT_EQ(valuesOf(u"\"n\"=hex:01,f,FF"), " n=3:010fff");
    EXPECT_EQ(valuesOf(u"\"n\"=hex:"), " n=3:");
    EXPECT_EQ(valuesOf(u"\"n\"=hex(7):61,00,00,00"), " n=7:61000000");
    EXPECT_EQ(valuesOf(u"\"n\"=hex(b):1,2,3,4,5,6,7,8"), " n=11:0102030405060708");
    EXPECT_EQ(valuesOf(u"\"n\"=hex(0):"), " n=0:");
    EXPECT_EQ(valuesOf(u"\"n\"=hex(ffffffff):00"), " n=4294967295:00");
    EXPECT_EQ(valuesOf(u"\"n\"=-"), " n=-");
    EXPECT_EQ(valuesOf(u"@=-"), " =-");
}

TEST(RegistryText, ReadsEscapesAndNamesWithAnything)
{
    EXPECT_EQ(valuesOf(u"\"C:\\\\a \\\"b\\\"\"=-"), " C:\\a \"b\"=-");
    EXPECT_EQ(valuesOf(u"\"=\"=\"=;\""), " ==1:3d003b000000");
    EXPECT_EQ(valuesOf(u"\"\u56f3\"=-"), " \u56f3=-");
}

TEST(RegistryText, ATextMayGoOnOverLines)
{
    EXPECT_EQ(valuesOf(u"\"n\"=\"a\r\nb\"\r\n@=-"), " n=1:61000d000a0062000000 =-");
}

TEST(RegistryText, BytesGoOnBehindABackslash)
{
    EXPECT_EQ(valuesOf(u"\"n\"=hex:01,\\\r\n  02,\\\n03\n@=-"), " n=3:010203 =-");
}

TEST(RegistryText, CommentsMayStandBetweenLinesOfBytes)
{
    EXPECT_EQ(valuesOf(u"\"n\"=hex:01,\\\r\n; a comment, 02\r\n  ; another\n  02,\\\n03\n@=-"), " n=3:010203 =-");
    EXPECT_EQ(errorsOf(u"\"n\"=hex:01,\\\n; a comment\n02\n\"m\"=1"), "7: no data of a known form\n");
}

TEST(RegistryText, ACommaMayStandBehindTheLastByte)
{
    EXPECT_EQ(valuesOf(u"\"n\"=hex:01,02,\n\"m\"=hex(7):00,00 , ; a comment\n@=hex:1,\\\n2,"),
              " n=3:0102 m=7:0000 =3:0102");
}

TEST(RegistryText, ACommentMayStandBehindAKey)
{
    Recorder recorder;
    EXPECT_EQ(
        describe(readRegistryText(Start + u"[HKEY_USERS\\a]b] ; a comment\n[-HKEY_USERS\\b];another\n"s, recorder)),
        "");
    EXPECT_EQ(recorder.notes, "[HKEY_CURRENT_USER\\A] [HKEY_USERS\\a]b] [-HKEY_USERS\\b]");
}

TEST(RegistryText, ANameThatLooksLikeAKeyWithACommentStaysOne)
{
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryText(Start + u"[HKEY_USERS\\a] ; b]\n"s, recorder)), "");
    EXPECT_EQ(recorder.notes, "[HKEY_CURRENT_USER\\A] [HKEY_USERS\\a] ; b]");
}

TEST(RegistryText, BlankLinesMayStandBeforeTheFirst)
{
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryText(u"\r\n \t\n"s + Start + u"\"n\"=1", recorder)), "6: no data of a known form\n");
    EXPECT_EQ(describe(readRegistryText(u"\nREGEDIT4\n\n[HKEY_USERS\\a]"s, recorder, decodeLatin1)), "");
    EXPECT_EQ(recorder.notes, "[HKEY_CURRENT_USER\\A] [HKEY_USERS\\a]");
    EXPECT_EQ(describe(readRegistryText(u"\n\n; a comment\n"s + Start, recorder)),
              "3: the first line does not say that this is a registry text\n");
}

TEST(RegistryText, BlanksAndCommentsArePassedOver)
{
    EXPECT_EQ(valuesOf(u"; a comment\n\n   \t\n  \"n\" = hex: 01 , 02  ; a comment\n;[x"), " n=3:0102");
}

TEST(RegistryText, ReadsKeysAndTheirRemoval)
{
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryText(u"Windows Registry Editor Version 5.00\r\n\r\n[hkey_users\\a]b]\r\n"
                                        u"[-HKEY_CLASSES_ROOT\\.x]\r\n[HKEY_LOCAL_MACHINE]  \r\n",
                                        recorder)),
              "");
    EXPECT_EQ(recorder.notes, "[hkey_users\\a]b] [-HKEY_CLASSES_ROOT\\.x] [HKEY_LOCAL_MACHINE]");
}

TEST(RegistryText, ErrorsNameTheLineAndLeaveTheOthers)
{
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryText(Start + u"\"a\"=1\n\"b\"=-\n\"c\"=dword:\n"s, recorder)),
              "4: no data of a known form\n6: a number of one to eight hexadecimal digits is missing\n");
    EXPECT_EQ(recorder.notes, "[HKEY_CURRENT_USER\\A] b=-");
}

TEST(RegistryText, SaysWhatIsWrong)
{
    const struct
    {
        const char16_t *line;
        const char *reason;
    } rows[] = {
        {u"x", "neither a key, a value nor a comment"},
        {u"[HKEY_CURRENT_USER\\x", "the bracket behind the key is missing"},
        {u"[HKEY_CURRENT_USER\\x ; a comment", "the bracket behind the key is missing"},
        {u"[HKEY_CURRENT_USER\\x] y ; a comment", "something stands behind the key"},
        {u"[]", "no such key can be"},
        {u"[HKCU\\x]", "no such key can be"},
        {u"[HKEY_CURRENT_USER\\]", "no such key can be"},
        {u"[HKEY_CURRENT_USER\\a\\\\b]", "no such key can be"},
        {u"[-HKEY_CURRENT_USER]", "no such key can be"},
        {u"\"n", "the closing quotation mark is missing"},
        {u"\"n\"", "'=' is missing"},
        {u"\"n\"=\"C:\\temp\"", "a lone backslash in a text: write two"},
        {u"\"n\"=\"a\" b", "something stands behind the value"},
        {u"\"n\"=dword:123456789", "a number of one to eight hexadecimal digits is missing"},
        {u"\"n\"=hex:100", "a byte has two hexadecimal digits"},
        {u"\"n\"=hex:1 2", "a comma is missing"},
        {u"\"n\"=hex:1,,2", "a number of one to eight hexadecimal digits is missing"},
        {u"\"n\"=hex:,", "a number of one to eight hexadecimal digits is missing"},
        {u"\"n\"=hex:1,\\", "a backslash ends a line of bytes"},
        {u"\"n\"=hex:1,\\\n", "a byte is missing behind the last backslash"},
        {u"\"n\"=hex:1,\\\n; a comment", "a byte is missing behind the last backslash"},
        {u"\"n\"=hex:1,\\\n; a comment\n\"m\"=-", "a number of one to eight hexadecimal digits is missing"},
        {u"\"n\"=hex(2:1", "')' is missing"},
        {u"\"n\"=hex 1", "':' is missing"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(errorsOf(row.line), "4: "s + row.reason + "\n");
    EXPECT_EQ(errorsOf(u"[-HKEY_CURRENT_USER\\b]\n\"n\"=-"), "5: a value without a key\n");
    EXPECT_EQ(errorsOf(u"\"" + std::u16string(16384, u'n') + u"\"=-"), "4: no value can have this name\n");
    EXPECT_EQ(errorsOf(u"[HKEY_CURRENT_USER\\" + std::u16string(256, u'k') + u"]"), "4: no such key can be\n");
}

TEST(RegistryText, TheValuesOfAKeyThatCannotBeArePassedOverWithIt)
{
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryText(Start + u"[HKCU\\x]\n\"lost\"=-\n[HKEY_USERS\\b]\n\"n\"=-"s, recorder)),
              "4: no such key can be\n");
    EXPECT_EQ(recorder.notes, "[HKEY_CURRENT_USER\\A] [HKEY_USERS\\b] n=-");
}

TEST(RegistryText, AnotherFirstLineIsNoRegistryText)
{
    Recorder recorder;
    for (const char16_t *text : {u"", u"REGEDIT4\n", u"[HKEY_USERS]\n", u"Windows Registry Editor Version 6.00\n"})
        EXPECT_EQ(describe(readRegistryText(text, recorder)),
                  "1: the first line does not say that this is a registry text\n");
    EXPECT_EQ(recorder.notes, "");
}

TEST(RegistryText, TheOlderFormHoldsItsTextsInEightBits)
{
    Recorder recorder;
    EXPECT_EQ(
        describe(readRegistryText(u"REGEDIT4\r\n\r\n[HKEY_USERS\\a]\r\n@=\"x\"\r\n\"n\"=hex(2):e4,00\r\n\"b\"=hex:e4",
                                  recorder, decodeLatin1)),
        "");
    EXPECT_EQ(recorder.notes, "[HKEY_USERS\\a] =1:78000000 n=2:e4000000 b=3:e4");
}

TEST(RegistryText, WhatIsWrittenReadsTheSame)
{
    RegistryTextWriter writer;
    Recorder expected;
    for (RegistryTextReceiver *receiver : std::initializer_list<RegistryTextReceiver *>{&writer, &expected}) {
        receiver->addKey(u"HKEY_USERS\\a[b]");
        for (const std::u16string &name : {u""s, u"a\"b\\c"s, u"two\r\nlines"s, u";="s}) {
            for (const QByteArray &data :
                 {QByteArray(), QByteArray("a\0\0\0", 4), QByteArray("a\0", 2), QByteArray("\n\0\0\0", 4),
                  QByteArray("\0\xd8\0\0", 4), QByteArray("a\0\0\0b\0\0\0", 8), QByteArray("abc"),
                  QByteArray("\"\0\\\0\0\0", 6), QByteArray(200, '\x5a')})
                for (const std::uint32_t type : {0u, 1u, 2u, 3u, 4u, 7u, 11u, 99u})
                    receiver->setValue(name, type, data);
            receiver->removeValue(name);
        }
        receiver->removeKey(u"HKEY_USERS\\b");
    }
    Recorder recorder;
    EXPECT_EQ(describe(readRegistryLines(writer.text(), recorder)), "");
    EXPECT_EQ(recorder.notes, expected.notes);
}

TEST(RegistryText, BytesAreWrittenInLinesOf80Characters)
{
    RegistryTextWriter writer(u"\r\n");
    writer.setValue(u"n", RegistryBinary, QByteArray(60, '\1'));
    std::u16string text = writer.text();
    std::size_t lines = 0;
    for (std::size_t end = text.find(u"\r\n"); end != text.npos; end = text.find(u"\r\n"), ++lines) {
        EXPECT_LE(end, 80u);
        text.erase(0, end + 2);
    }
    EXPECT_EQ(lines, 3u);
}
