#include "host/kernel/profile/EscapedText.h"

#include <gtest/gtest.h>

#include <random>

namespace {

struct Row
{
    QString text;
    QString value; // as a value stands in the file
    QString name;  // as a name does
};

const std::vector<Row> rows = {
    {u""_qs, u""_qs, u""_qs},
    {u"plain"_qs, u"plain"_qs, u"plain"_qs},
    {u"größe \U0001F600 中"_qs, u"größe \U0001F600 中"_qs, u"größe \U0001F600 中"_qs},
    {u"a=b"_qs, u"a=b"_qs, uR"(a\=b)"_qs},
    {u"[a];#"_qs, u"[a];#"_qs, uR"(\[a\]\;\#)"_qs},
    {u"C:\\temp"_qs, uR"(C:\\temp)"_qs, uR"(C:\\temp)"_qs},
    {u"a\nb\rc\td"_qs, uR"(a\nb\rc\td)"_qs, uR"(a\nb\rc\td)"_qs},
    {u" a b "_qs, uR"(\u0020a b\u0020)"_qs, uR"(\u0020a b\u0020)"_qs},
    {u" "_qs, uR"(\u0020)"_qs, uR"(\u0020)"_qs},
    {u"\u0001\u007f\u0085\u2028\u2029\ufeff\u202e"_qs, uR"(\u0001\u007f\u0085\u2028\u2029\ufeff\u202e)"_qs,
     uR"(\u0001\u007f\u0085\u2028\u2029\ufeff\u202e)"_qs},
};

} // namespace

TEST(EscapedText, StandsPlainlyWhereItCan)
{
    for (const Row &row : rows) {
        EXPECT_EQ(escaped(row.text, EscapedPlace::Value).toStdString(), row.value.toStdString());
        EXPECT_EQ(escaped(row.text, EscapedPlace::Name).toStdString(), row.name.toStdString());
    }
}

TEST(EscapedText, WritesLoneSurrogatesByNumber)
{
    const QString text = u"a"_qs + QChar(0xd83d) + u"b"_qs + QChar(0xde00) + QChar(0xd83d);
    EXPECT_EQ(escaped(text, EscapedPlace::Value).toStdString(), R"(a\ud83db\ude00\ud83d)");
    const QString wrongOrder = QString(QChar(0xde00)) + QChar(0xd83d);
    EXPECT_EQ(escaped(wrongOrder, EscapedPlace::Value).toStdString(), R"(\ude00\ud83d)");
}

TEST(EscapedText, OfAnyUnitsComesBackFromUtf8)
{
    constexpr QStringView Alphabet = u"ab =[];#\\nru01\n\r\t\u0001\u0085\u2028\ufeff\uffff\xd83d\xde00\U0001F600";
    std::mt19937 random(1);
    for (int round = 0; round < 20'000; ++round) {
        QString text;
        for (auto length = random() % 8; length > 0; --length)
            text += Alphabet[static_cast<qsizetype>(random() % static_cast<unsigned>(Alphabet.size()))];
        for (const EscapedPlace place : {EscapedPlace::Value, EscapedPlace::Name}) {
            const QString written = QString::fromUtf8(escaped(text, place).toUtf8());
            QString back, failure;
            ASSERT_TRUE(unescape(written, back, failure)) << qPrintable(written);
            ASSERT_EQ(back, text) << qPrintable(written);
            ASSERT_EQ(written.trimmed(), written);
            ASSERT_FALSE(written.contains(u'\n'));
        }
    }
}

TEST(EscapedText, IsReadInOtherSpellingsToo)
{
    QString back, failure;
    EXPECT_TRUE(unescape(uR"(\u00DF\"\-\u0041)", back, failure));
    EXPECT_EQ(back, u"ß\"-A"_qs);
}

TEST(EscapedText, WithAnEscapeThatThereIsNotIsRefused)
{
    const std::vector<std::pair<QString, QString>> wrong = {
        {uR"(a\)"_qs, uR"(no escape begins with "\")"_qs},
        {uR"(C:\qemu)"_qs, uR"(no escape begins with "\q")"_qs},
        {uR"(\u12)"_qs, uR"(no escape begins with "\u12")"_qs},
        {uR"(\u0x12)"_qs, uR"(no escape begins with "\u0x12")"_qs},
        {uR"(\u 123)"_qs, uR"(no escape begins with "\u 123")"_qs},
        {uR"(\u-123)"_qs, uR"(no escape begins with "\u-123")"_qs},
        {uR"(\u0000)"_qs, uR"(no escape begins with "\u0000")"_qs},
        {uR"(\ a)"_qs, uR"(no escape begins with "\ ")"_qs},
    };
    for (const auto &[text, reason] : wrong) {
        QString back, failure;
        EXPECT_FALSE(unescape(text, back, failure)) << qPrintable(text);
        EXPECT_EQ(failure.toStdString(), reason.toStdString());
    }
}
