#include "host/kernel/profile/SettingsReader.h"

#include <gtest/gtest.h>

namespace {

// "" for nothing, else the damaged lines as "2: reason".
std::string damages(const ReadSettings &settings)
{
    std::string result;
    for (const DamagedLine &line : settings.damagedLines)
        result += std::to_string(line.number) + ": " + line.reason.toStdString() + '\n';
    return result;
}

std::string valueIn(const ReadSettings &settings, const QString &section, const QString &key)
{
    const QString *value = settings.text.value(section, key);
    return value ? value->toStdString() : "none";
}

// What is written again after reading.
std::string rewritten(const QByteArray &bytes)
{
    return readSettings(bytes).text.toBytes().toStdString();
}

} // namespace

TEST(SettingsText, IsWrittenForPeopleToRead)
{
    SettingsText text;
    text.setValue(u"Tarn"_qs, u"OSMODE"_qs, u"INT__5"_qs);
    text.setValue(u"variables"_qs, u"Größe"_qs, u"a=b; \"c\""_qs);
    text.setValue(u"Tarn"_qs, u"two words"_qs, u""_qs);
    EXPECT_EQ(text.toBytes().toStdString(), "[Tarn]\nOSMODE=INT__5\ntwo words=\n[variables]\nGröße=a=b; \"c\"\n");
}

TEST(SettingsText, KeepsItsOrderWhenAValueChanges)
{
    SettingsText text;
    text.setValue(u"s"_qs, u"a"_qs, u"1"_qs);
    text.setValue(u"s"_qs, u"b"_qs, u"2"_qs);
    text.setValue(u"s"_qs, u"a"_qs, u"3"_qs);
    EXPECT_EQ(text.toBytes().toStdString(), "[s]\na=3\nb=2\n");
}

TEST(SettingsText, TellsNamesApartByCaseAndKnowsEmptyOnes)
{
    SettingsText text;
    text.setValue(u"s"_qs, u"a"_qs, u"1"_qs);
    text.setValue(u"s"_qs, u"A"_qs, u"2"_qs);
    text.setValue(u"S"_qs, u"a"_qs, u"3"_qs);
    text.setValue(u""_qs, u""_qs, u"4"_qs);
    const ReadSettings read = readSettings(text.toBytes());
    EXPECT_EQ(valueIn(read, u"s"_qs, u"a"_qs), "1");
    EXPECT_EQ(valueIn(read, u"s"_qs, u"A"_qs), "2");
    EXPECT_EQ(valueIn(read, u"S"_qs, u"a"_qs), "3");
    EXPECT_EQ(valueIn(read, u""_qs, u""_qs), "4");
    EXPECT_EQ(valueIn(read, u"S"_qs, u"A"_qs), "none");
    EXPECT_EQ(valueIn(read, u"T"_qs, u"a"_qs), "none");
}

TEST(SettingsReader, TakesWhatPeopleWrite)
{
    const ReadSettings read = readSettings("\xEF\xBB\xBF; remark\r\n [ s ] \r\n\t a = 1 2 \r\n[t]\r\nb=\r\n[s]\r\nc=3");
    EXPECT_EQ(damages(read), "");
    EXPECT_EQ(valueIn(read, u"s"_qs, u"a"_qs), "1 2");
    EXPECT_EQ(valueIn(read, u"t"_qs, u"b"_qs), "");
    EXPECT_EQ(valueIn(read, u"s"_qs, u"c"_qs), "3");
}

TEST(SettingsReader, KeepsRemarksAndEmptyLinesWhereTheyStand)
{
    const QByteArray bytes = "; first\n\n[s]\n# of a\na=1\n\n; of t\n[t]\nb=2\n; last\n";
    EXPECT_EQ(rewritten(bytes), bytes.toStdString());
    ReadSettings read = readSettings(bytes);
    read.text.setValue(u"s"_qs, u"new"_qs, u"3"_qs);
    EXPECT_EQ(read.text.toBytes().toStdString(), "; first\n\n[s]\n# of a\na=1\nnew=3\n\n; of t\n[t]\nb=2\n; last\n");
}

TEST(SettingsReader, TellsOfEachLineThatCannotBeRead)
{
    const ReadSettings read = readSettings("a=0\n"
                                           "[s]\n"
                                           "a=1\n"
                                           "no equals sign\n"
                                           "a=2\n"
                                           "path=C:\\qemu\n"
                                           "key\\\n"
                                           "latin=gr\xF6\xDF\n"
                                           "b=3\n"
                                           "[half\n"
                                           "c=4\n"
                                           "[s] tail\n"
                                           "[\\q]\n"
                                           "[t]\n"
                                           "d=5\n");
    EXPECT_EQ(damages(read), "1: it stands above the first section\n"
                             "4: no = is in it\n"
                             "5: the key is there already\n"
                             "6: no escape begins with \"\\q\"\n"
                             "7: no = is in it\n"
                             "8: it is not UTF-8\n"
                             "10: no ] ends it\n"
                             "11: its section cannot be read\n"
                             "12: no ] ends it\n"
                             "13: no escape begins with \"\\q\"\n");
    EXPECT_EQ(read.text.toBytes().toStdString(), "[s]\na=1\nb=3\n[t]\nd=5\n");
}

TEST(SettingsReader, OfNothingGivesNothing)
{
    EXPECT_EQ(rewritten(""), "");
    EXPECT_EQ(damages(readSettings("")), "");
}

TEST(SettingsReader, TakesNoNulIntoAText)
{
    const ReadSettings read = readSettings(QByteArray("[s]\na=1\0002\n; \0\nb=3\n", 18));
    EXPECT_EQ(damages(read), "2: it holds a NUL\n3: it holds a NUL\n");
    EXPECT_EQ(read.text.toBytes().toStdString(), "[s]\nb=3\n");
}
