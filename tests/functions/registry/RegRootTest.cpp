// The name of the root at the beginning of a path, through the three functions that take one.

#include "tests/functions/registry/RegistryTest.h"

using namespace std::string_literals;

namespace {

class RegRoot : public RegistryTest
{
protected:
    Operations get(const std::u16string &path) { return call(acetRegGet, {text(path), text(u"x")}); }
};

const Operations found = {"getArgs", operation("retWStr", "found"), "releaseRb 2"};
const Operations notFound = {"getArgs", "releaseRb 2"};
const Operations noRoot = {"getArgs", "releaseRb 1"};

} // namespace

TEST_F(
    RegRoot,
    APathThatBeginsWithHkeyLocalMachineOpensTheSubkeyWhoseFirstCharacterIsHFollowedByTheSubkeyWithoutItsFirstCharacter)
{
    addKey(HKEY_LOCAL_MACHINE, u"Hoftware");
    addKey(HKEY_LOCAL_MACHINE, u"Hoftware\\Foo");
    set(u"x", REG_SZ, bytesOf(u"found\0"s), HKEY_LOCAL_MACHINE, u"Hoftware\\Foo");
    EXPECT_EQ(get(u"HKEY_LOCAL_MACHINE\\Software\\Foo"), found);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, windowsText(u"Hoftware"));
    EXPECT_EQ(get(u"HKEY_LOCAL_MACHINE\\Software\\Foo"), notFound);
}

TEST_F(RegRoot, TheOtherRootsKeepTheFirstCharacterOfThePathToo)
{
    const struct
    {
        HKEY root;
        const char16_t *path;
    } rows[] = {{HKEY_CLASSES_ROOT, u"HKEY_CLASSES_ROOT\\.testcase"},
                {HKEY_USERS, u"HKEY_USERS\\.DEFAULT"},
                {HKEY_CURRENT_CONFIG, u"HKEY_CURRENT_CONFIG\\Software"}};
    int tried = 0;
    for (const auto &row : rows) {
        const std::u16string path = row.path;
        const std::u16string cut = u"H" + path.substr(path.find(u'\\') + 2);
        HKEY key = nullptr;
        if (RegCreateKeyExW(row.root, windowsText(cut.c_str()), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                            nullptr) != 0)
            continue; // Windows lets nobody add keys everywhere
        ++tried;
        RegCloseKey(key);
        set(u"x", REG_SZ, bytesOf(u"found\0"s), row.root, cut.c_str());
        EXPECT_EQ(get(path), found);
        RegDeleteKeyW(row.root, windowsText(cut.c_str()));
        EXPECT_EQ(get(path), notFound);
    }
#ifdef _WIN32
    EXPECT_GE(tried, 1);
#else
    EXPECT_EQ(tried, 3);
#endif
}

TEST_F(RegRoot, APathThatBeginsWithHkcuYieldsNilWithoutTouchingTheRegistry)
{
    EXPECT_EQ(get(u"HKCU\\Software\\LispExtension tests"), noRoot);
    EXPECT_EQ(call(acetRegPut, {text(u"HKCU\\Software\\LispExtension tests"), text(u"x"), text(u"1234")}), noRoot);
    EXPECT_EQ(call(acetRegDel, {text(u"HKCU\\Software\\LispExtension tests"), text(u"x")}), noRoot);
    EXPECT_EQ(data(u"x"), "missing");
}

TEST_F(RegRoot, LowerCaseOtherSpellingsAndAMissingBackslashAreNoRoot)
{
    for (const char16_t *path : {u"hkey_current_user\\Software", u"HKEY_CURRENT_USER", u"HKEY_CURRENT_USER/Software",
                                 u"HKEY_DYN_DATA\\x", u"Software", u""})
        EXPECT_EQ(get(path), noRoot);
}

TEST_F(RegRoot, CountsWhereverItStandsInThePathButIsCutFromTheBeginning)
{
    // 18 characters go, as many as the name and its backslash have; what is left begins with the first key.
    const std::u16string front = u"123456789012345678Software\\LispExtension tests\\";
    EXPECT_EQ(get(front + u"HKEY_CURRENT_USER\\deep"), notFound);
    addKey(HKEY_CURRENT_USER, u"Software\\LispExtension tests\\HKEY_CURRENT_USER\\deep");
    set(u"x", REG_SZ, bytesOf(u"found\0"s), HKEY_CURRENT_USER,
        u"Software\\LispExtension tests\\HKEY_CURRENT_USER\\deep");
    EXPECT_EQ(get(front + u"HKEY_CURRENT_USER\\deep"), found);
}

TEST_F(RegRoot, TheFirstOfTheTableWinsNotTheFirstInThePath)
{
    addKey(HKEY_CURRENT_USER, u"1\\HKEY_CURRENT_USER\\LispExtension");
    set(u"x", REG_SZ, bytesOf(u"found\0"s), HKEY_CURRENT_USER, u"1\\HKEY_CURRENT_USER\\LispExtension");
    EXPECT_EQ(get(u"HKEY_LOCAL_MACHINE1\\HKEY_CURRENT_USER\\LispExtension"), found);
    RegDeleteTreeW(HKEY_CURRENT_USER, windowsText(u"1"));
}

TEST_F(RegRoot, ARootAloneIsTheKeyItself)
{
    set(u"LispExtension x", REG_SZ, bytesOf(u"found\0"s), HKEY_CURRENT_USER, u"Software");
    EXPECT_EQ(call(acetRegGet, {text(u"HKEY_CURRENT_USER\\Software\\"), text(u"LispExtension x")}), found);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, windowsText(u"Software"), 0, KEY_WRITE, &key), 0);
    RegDeleteValueW(key, windowsText(u"LispExtension x"));
    RegCloseKey(key);
    EXPECT_EQ(call(acetRegGet, {text(u"HKEY_CURRENT_USER\\"), text(u"LispExtension x")}), notFound);
}

TEST_F(RegRoot, APathOf32767CharactersYieldsNil)
{
    EXPECT_EQ(get(u"HKEY_CURRENT_USER\\" + std::u16string(32767 - 18, u'k')), notFound);
}
