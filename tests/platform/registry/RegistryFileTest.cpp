// What stands in the folder, and when.

#include "tests/platform/registry/RegistryStoreTest.h"

#include <QElapsedTimer>
#include <QThread>

namespace {

class RegistryFiles : public RegistryStoreTest
{
};

} // namespace

TEST_F(RegistryFiles, AKeyOfTheSetUpExistsWithoutAnythingOnTheDisk)
{
    EXPECT_EQ(get(u"x"), "missing");
    EXPECT_FALSE(QDir(folder() + u"/registry"_qs).exists());
}

TEST_F(RegistryFiles, TheFirstChangeWritesTheRootAsARegistryText)
{
    EXPECT_EQ(set(u"x", "1"), 0);
    const QByteArray content = contentOf(hive());
    EXPECT_TRUE(content.startsWith("Windows Registry Editor Version 5.00\n")) << content.constData();
    EXPECT_TRUE(content.endsWith("\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:31\n; end\n"))
        << content.constData();
    EXPECT_EQ(files(), QStringList({u"HKEY_CURRENT_USER.reg"_qs, u"HKEY_CURRENT_USER.reg.lock"_qs}));
}

TEST_F(RegistryFiles, AFurtherChangeIsOneBlockAtTheEnd)
{
    set(u"x", "1");
    const QByteArray before = contentOf(hive());
    EXPECT_EQ(set(u"y", "2"), 0);
    EXPECT_EQ(contentOf(hive()), before + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"y\"=hex:32\n; end\n");
}

TEST_F(RegistryFiles, EveryChangeIsThereAfterARestart)
{
    HKEY key = nullptr;
    set(u"x", "1");
    set(u"x", "2");
    set(u"", "unnamed");
    set(u"gone", "3");
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, u"Software\\Test\\below\\deep", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                              &key, nullptr),
              0);
    RegCloseKey(key);
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, u"Software\\Test\\gone", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                              nullptr),
              0);
    RegCloseKey(key);
    RegDeleteKeyW(HKEY_CURRENT_USER, u"Software\\Test\\gone");
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, Key, 0, KEY_WRITE, &key), 0);
    EXPECT_EQ(RegDeleteValueW(key, u"gone"), 0);
    RegCloseKey(key);

    restart();
    EXPECT_EQ(get(u"x"), "2");
    EXPECT_EQ(get(u""), "unnamed");
    EXPECT_EQ(get(u"gone"), "missing");
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, u"Software\\Test\\below\\deep", 0, KEY_READ, &key), 0);
    RegCloseKey(key);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, u"Software\\Test\\gone", 0, KEY_READ, &key), 2);
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryFiles, NamesAndDataOfEveryKindSurviveARestart)
{
    const std::u16string names[] = {u"=",          u"\"quoted\"", u"back\\slash",
                                    u"two\nlines", u"; end",      u"Zürich 図面 \U0001F5FA",
                                    u"[x]",        u"tab\t",      std::u16string(16383, u'n')};
    for (const std::u16string &name : names)
        EXPECT_EQ(set(name.c_str(), QByteArray("\0\xff\n; end\n", 9)), 0);
    restart();
    for (const std::u16string &name : names)
        EXPECT_EQ(get(name.c_str()), QByteArray("\0\xff\n; end\n", 9));
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryFiles, NamesThatNoTextCouldHoldAreRefused)
{
    EXPECT_EQ(set(u"half \xd83d pair", "x"), 87);
    HKEY key = nullptr;
    for (const char16_t *name : {u"line\nfeed", u"half \xdc00 pair"})
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 87);
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, std::u16string(256, u'k').c_str(), 0, nullptr, 0, KEY_READ, nullptr,
                              &key, nullptr),
              87);
}

TEST_F(RegistryFiles, NoMoreThan512LevelsAreAdded)
{
    std::u16string path = u"1";
    for (int level = 3; level <= 512; ++level)
        path += u"\\1";
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 0);
    RegCloseKey(key);
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, (path + u"\\1").c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
        87);
    restart();
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key), 0);
    RegCloseKey(key);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, u"1"), 0);
}

TEST_F(RegistryFiles, ChangesThatOutgrowTheRootAreDroppedForANewFile)
{
    qint64 largest = 0;
    for (int change = 0; change < 100; ++change) {
        ASSERT_EQ(set(u"x", QByteArray(5000, static_cast<char>('a' + change % 26))), 0);
        largest = std::max(largest, QFileInfo(hive()).size());
    }
    EXPECT_LT(largest, 400'000);
    EXPECT_GT(largest, 256 * 1024);
    EXPECT_LT(QFileInfo(hive()).size(), largest);
    restart();
    EXPECT_EQ(get(u"x"), QByteArray(5000, static_cast<char>('a' + 99 % 26)));
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryFiles, WhatAPersonChangesInTheFileCountsWithinASecondOrSo)
{
    set(u"x", "1");
    QByteArray content = contentOf(hive());
    write(hive(), content.replace("\"x\"=hex:31", "\"x\"=hex:32,33\n\"by hand\"=hex:34"));
    QElapsedTimer waited;
    for (waited.start(); get(u"x") == "1" && waited.elapsed() < 10'000;)
        QThread::msleep(20);
    EXPECT_EQ(get(u"x"), "23");
    EXPECT_EQ(get(u"by hand"), "4");
    EXPECT_LT(waited.elapsed(), 3000);
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryFiles, AnEditorsLineEndsAndAMissingLastOneDoNoHarm)
{
    set(u"x", "1");
    QByteArray content = contentOf(hive());
    write(hive(), content.replace("\n", "\r\n").chopped(2));
    restart();
    EXPECT_EQ(get(u"x"), "1");
    EXPECT_EQ(set(u"y", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "12");
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryFiles, AHandleStaysGoodWhenTheFileIsReplaced)
{
    set(u"x", "1");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, Key, 0, KEY_READ, &key), 0);
    QByteArray content = contentOf(hive());
    QFile::remove(hive());
    write(hive(), content.replace("\"x\"=hex:31", "\"x\"=hex:32"));
    QThread::msleep(1100);
    BYTE byte = 0;
    DWORD size = 1;
    EXPECT_EQ(RegQueryValueExW(key, u"x", nullptr, nullptr, &byte, &size), 0);
    EXPECT_EQ(byte, '2');
    RegCloseKey(key);
}

// Of one line in place, of the same length, with a change of another program behind it: the file has the same number,
// it is longer, and ends as it did.
TEST_F(RegistryFiles, WhatAnEditorChangesInPlaceIsSeenAndStays)
{
    set(u"x", "1");
    set(u"last", QByteArray(200, '0'));
    EXPECT_EQ(get(u"x"), "1");
    QFile file(hive());
    ASSERT_TRUE(file.open(QFile::ReadWrite));
    QByteArray content = file.readAll().replace("\"x\"=hex:31", "\"x\"=hex:39");
    content += "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"y\"=hex:32\n; end\n";
    ASSERT_TRUE(file.seek(0) && file.write(content) == content.size());
    file.close();
    EXPECT_EQ(set(u"large", QByteArray(400'000, '0')), 0); // makes the file worth writing anew, from what was read
    EXPECT_EQ(get(u"x") + get(u"y"), "92");
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "92");
}
