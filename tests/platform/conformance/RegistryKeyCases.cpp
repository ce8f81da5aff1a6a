// Keys: paths, handles, rights, adding and removing.

#include "tests/platform/conformance/RegistryCases.h"

using conformance::Case;
using conformance::Cases;

namespace {

// Paths below a key that holds a\b\c.
const struct
{
    const char *name;
    const char16_t *path;
    LSTATUS opened, openedByW, added, removed;
} paths[] = {
    {"a key below", u"a\\b\\c", 0, 0, 0, 0},
    {"a key in other case", u"A\\B\\C", 0, 0, 0, 0},
    {"a key with keys below", u"a", 0, 0, 0, 5},
    {"a backslash at the end", u"a\\b\\c\\", 0, 0, 0, 0},
    {"a doubled backslash", u"a\\\\b\\c", 0, 0, 0, 0},
    {"a backslash at the beginning", u"\\a", 161, 161, 161, 161},
    {"a backslash alone", u"\\", 161, 161, 161, 161},
    {"a key that is missing", u"missing", 2, 2, 0, 0},
    {"a key below a missing one", u"missing\\key", 2, 2, 0, 0},
    {"a name with blanks", u" two words ", 2, 2, 0, 0},
    {"a name with a slash", u"a/b", 2, 2, 0, 0},
    {"a name beyond ASCII", u"Z\u00fcrich \u56f3\u9762", 2, 2, 0, 0},
    {"a name beyond the first plane", u"\U0001F5FA", 2, 2, 0, 0},
};

void runPath(Case &test, const char16_t *path, LSTATUS opened, LSTATUS openedByW, LSTATUS added, LSTATUS removed)
{
    const NewKey key;
    HKEY below = nullptr;
    test.expect("a\\b\\c is added", 0, key.add(u"a\\b\\c"));
    test.expect("RegOpenKeyExW", opened, key.open(path, KEY_READ, &below));
    test.expect("RegOpenKeyExW gives a handle", opened == 0, below != nullptr);
    RegCloseKey(below);
    below = nullptr;
    test.expect("RegOpenKeyW", openedByW, RegOpenKeyW(key, windowsText(path), &below));
    RegCloseKey(below);
    test.expect("RegCreateKeyExW", added, key.add(path));
    test.expect("RegDeleteKeyW", removed, RegDeleteKeyW(key, windowsText(path)));
    test.expect("RegOpenKeyExW afterwards", removed == 0 ? 2 : opened, key.open(path, KEY_READ, &below));
    RegCloseKey(below);
}

// What a handle may do that was opened with these rights.
const struct
{
    const char *name;
    REGSAM access;
    LSTATUS queried, set, removed, enumerated;
} rights[] = {
    {"no rights", 0, 5, 5, 5, 5},
    {"KEY_QUERY_VALUE", KEY_QUERY_VALUE, 0, 5, 5, 5},
    {"KEY_SET_VALUE", KEY_SET_VALUE, 5, 0, 0, 5},
    {"KEY_ENUMERATE_SUB_KEYS", KEY_ENUMERATE_SUB_KEYS, 5, 5, 5, 0},
    {"KEY_READ", KEY_READ, 0, 5, 5, 0},
    {"KEY_WRITE", KEY_WRITE, 5, 0, 0, 5},
    {"KEY_ALL_ACCESS", KEY_ALL_ACCESS, 0, 0, 0, 0},
    {"MAXIMUM_ALLOWED", MAXIMUM_ALLOWED, 0, 0, 0, 0},
    {"GENERIC_READ", 0x80000000, 0, 5, 5, 0},
    {"GENERIC_WRITE", 0x40000000, 5, 0, 0, 5},
    {"GENERIC_ALL", 0x10000000, 0, 0, 0, 0},
};

void runRights(Case &test, REGSAM access, LSTATUS queried, LSTATUS set, LSTATUS removed, LSTATUS enumerated)
{
    const NewKey key;
    key.add(u"below");
    key.set(u"text", REG_SZ, u"x", 4);
    HKEY limited = nullptr;
    test.expect("opened", 0, key.open(u"", access, &limited));
    DWORD size = 0;
    WCHAR name[8];
    DWORD length = 8;
    test.expect("RegQueryValueExW", queried,
                RegQueryValueExW(limited, windowsText(u"text"), nullptr, nullptr, nullptr, &size));
    test.expect("RegEnumValueW", queried, RegEnumValueW(limited, 0, name, &length, nullptr, nullptr, nullptr, nullptr));
    length = 8;
    test.expect("RegEnumKeyExW", enumerated,
                RegEnumKeyExW(limited, 0, name, &length, nullptr, nullptr, nullptr, nullptr));
    test.expect("RegSetValueExW", set,
                RegSetValueExW(limited, windowsText(u"other"), 0, REG_BINARY, reinterpret_cast<const BYTE *>("x"), 1));
    test.expect("RegDeleteValueW", removed, RegDeleteValueW(limited, windowsText(u"text")));
    RegCloseKey(limited);
}

// Handles that no call gave.
const struct
{
    const char *name;
    std::uintptr_t value;
    LSTATUS closed;
} handles[] = {
    {"the null handle", 0, 6},
    {"a number that is no handle", 0x7770, 6},
    {"an odd number", 0x7771, 6},
};

void runHandle(Case &test, std::uintptr_t value, LSTATUS closed)
{
    const HKEY handle = reinterpret_cast<HKEY>(value);
    HKEY result = nullptr;
    DWORD size = 0;
    test.expect("RegOpenKeyExW", 6, RegOpenKeyExW(handle, windowsText(u"a"), 0, KEY_READ, &result));
    test.expect("RegOpenKeyW", 6, RegOpenKeyW(handle, windowsText(u"a"), &result));
    test.expect("RegQueryValueExW", 6, RegQueryValueExW(handle, windowsText(u"a"), nullptr, nullptr, nullptr, &size));
    test.expect("RegSetValueExW", 6,
                RegSetValueExW(handle, windowsText(u"a"), 0, REG_SZ, reinterpret_cast<const BYTE *>(u"x"), 4));
    test.expect("RegDeleteValueW", 6, RegDeleteValueW(handle, windowsText(u"a")));
    test.expect("RegCloseKey", closed, RegCloseKey(handle));
}

void closedHandle(Case &test)
{
    const NewKey key;
    HKEY below = nullptr;
    test.expect("opened", 0, key.open(u"", KEY_READ, &below));
    test.expect("closed", 0, RegCloseKey(below));
    test.expect("closed again", 6, RegCloseKey(below));
}

void closedRoot(Case &test)
{
    HKEY key = nullptr;
    test.expect("closed", 0, RegCloseKey(HKEY_CURRENT_USER));
    test.expect("opened", 0, RegOpenKeyExW(HKEY_CURRENT_USER, windowsText(u"Software"), 0, KEY_READ, &key));
    RegCloseKey(key);
}

void openWithoutPath(Case &test)
{
    const NewKey key;
    for (const char16_t *path : {u"", static_cast<const char16_t *>(nullptr)}) {
        HKEY same = nullptr;
        test.expect("RegOpenKeyW", 0, RegOpenKeyW(key, windowsText(path), &same));
        test.expect("RegOpenKeyW gives the same handle", 1, same == key);
        HKEY other = nullptr;
        test.expect("RegOpenKeyExW", 0, RegOpenKeyExW(key, windowsText(path), 0, KEY_READ, &other));
        test.expect("RegOpenKeyExW gives another handle", 0, other == key);
        RegCloseKey(other);
    }
}

void openedAgain(Case &test)
{
    const NewKey key;
    const std::u16string path = conformanceKey + std::u16string(u"\\below");
    const auto open = [&path](HKEY root, REGSAM access, HKEY *result) {
        return RegOpenKeyExW(root, windowsText(path.c_str()), 0, access, result);
    };
    key.add(u"below");
    HKEY below = nullptr;
    for (const REGSAM access : {KEY_READ, KEY_ALL_ACCESS, KEY_READ}) {
        test.expect("opened", 0, open(HKEY_CURRENT_USER, access, &below));
        test.expect("RegDeleteValueW", access == KEY_READ ? 5 : 2, RegDeleteValueW(below, windowsText(u"x")));
        RegCloseKey(below);
    }
    test.expect("opened below another root", 2, open(HKEY_LOCAL_MACHINE, KEY_READ, &below));
    test.expect("RegDeleteKeyW", 0, RegDeleteKeyW(key, windowsText(u"below")));
    test.expect("opened after its removal", 2, open(HKEY_CURRENT_USER, KEY_READ, &below));
}

void openWithoutResult(Case &test)
{
    const NewKey key;
    test.expect("RegOpenKeyExW", 87, RegOpenKeyExW(key, windowsText(u""), 0, KEY_READ, nullptr));
    test.expect("RegOpenKeyW", 87, RegOpenKeyW(key, windowsText(u""), nullptr));
}

void dispositions(Case &test)
{
    const NewKey key;
    for (const DWORD expected : {REG_CREATED_NEW_KEY, REG_OPENED_EXISTING_KEY}) {
        HKEY below = nullptr;
        DWORD disposition = 0;
        test.expect("RegCreateKeyExW", 0,
                    RegCreateKeyExW(key, windowsText(u"x\\y"), 0, nullptr, 0, KEY_READ, nullptr, &below, &disposition));
        test.expect("disposition", expected, disposition);
        RegCloseKey(below);
    }
}

void createWithReserved(Case &test)
{
    const NewKey key;
    HKEY below = nullptr;
    test.expect("RegCreateKeyExW", 87,
                RegCreateKeyExW(key, windowsText(u"x"), 1, nullptr, 0, KEY_READ, nullptr, &below, nullptr));
    test.expect("RegOpenKeyExW", 2, key.open(u"x", KEY_READ, &below));
}

void createBelowAHandleForReading(Case &test)
{
    const NewKey key;
    HKEY reader = nullptr;
    test.expect("opened", 0, key.open(u"", KEY_READ, &reader));
    HKEY below = nullptr;
    test.expect("RegCreateKeyExW", 0,
                RegCreateKeyExW(reader, windowsText(u"x"), 0, nullptr, 0, KEY_READ, nullptr, &below, nullptr));
    RegCloseKey(below);
    test.expect("RegDeleteKeyW", 0, RegDeleteKeyW(reader, windowsText(u"x")));
    RegCloseKey(reader);
}

void longestKeyName(Case &test)
{
    const NewKey key;
    const std::u16string name(255, u'k');
    HKEY below = nullptr;
    test.expect("RegCreateKeyExW", 0, key.add(name.c_str()));
    test.expect("RegOpenKeyExW", 0, key.open(name.c_str(), KEY_READ, &below));
    RegCloseKey(below);
    test.expect("RegOpenKeyExW, one unit more", 2, key.open((name + u'k').c_str(), KEY_READ, &below));
}

void useOfARemovedKey(Case &test)
{
    const NewKey key;
    key.add(u"gone");
    HKEY gone = nullptr;
    test.expect("opened", 0, key.open(u"gone", KEY_ALL_ACCESS, &gone));
    test.expect("RegDeleteKeyW", 0, RegDeleteKeyW(key, windowsText(u"gone")));
    DWORD size = 0;
    HKEY below = nullptr;
    test.expect("RegQueryValueExW", 1018, RegQueryValueExW(gone, windowsText(u"x"), nullptr, nullptr, nullptr, &size));
    test.expect("RegSetValueExW", 1018,
                RegSetValueExW(gone, windowsText(u"x"), 0, REG_BINARY, reinterpret_cast<const BYTE *>("x"), 1));
    test.expect("RegDeleteValueW", 1018, RegDeleteValueW(gone, windowsText(u"x")));
    test.expect("RegOpenKeyExW", 1018, RegOpenKeyExW(gone, windowsText(u"x"), 0, KEY_READ, &below));
    test.expect("RegCloseKey", 0, RegCloseKey(gone));
}

void removalOfAKeyByItsOwnHandle(Case &test)
{
    const NewKey key;
    key.add(u"gone");
    HKEY gone = nullptr;
    test.expect("opened", 0, key.open(u"gone", KEY_ALL_ACCESS, &gone));
    test.expect("RegDeleteKeyW without a name", 87, RegDeleteKeyW(gone, nullptr));
    test.expect("RegDeleteKeyW of an empty name", 0, RegDeleteKeyW(gone, windowsText(u"")));
    RegCloseKey(gone);
    test.expect("RegOpenKeyExW", 2, key.open(u"gone", KEY_READ, &gone));
}

void removalOfAMissingKey(Case &test)
{
    const NewKey key;
    test.expect("RegDeleteKeyW", 2, RegDeleteKeyW(key, windowsText(u"missing")));
    test.expect("RegDeleteTreeW", 2, RegDeleteTreeW(key, windowsText(u"missing")));
}

void removalOfATree(Case &test)
{
    const NewKey key;
    key.add(u"tree\\x\\y");
    key.add(u"tree\\z");
    HKEY tree = nullptr;
    test.expect("RegDeleteTreeW", 0, RegDeleteTreeW(key, windowsText(u"tree")));
    test.expect("RegOpenKeyExW", 2, key.open(u"tree", KEY_READ, &tree));
}

void emptyingOfATree(Case &test)
{
    const NewKey key;
    key.add(u"tree\\x\\y");
    HKEY tree = nullptr;
    test.expect("opened", 0, key.open(u"tree", KEY_ALL_ACCESS, &tree));
    test.expect("RegDeleteTreeW", 0, RegDeleteTreeW(tree, nullptr));
    RegCloseKey(tree);
    test.expect("the key itself", 0, key.open(u"tree", KEY_READ, &tree));
    RegCloseKey(tree);
    test.expect("what was below", 2, key.open(u"tree\\x", KEY_READ, &tree));
}

void classesOfTheUser(Case &test)
{
    HKEY key = nullptr;
    const char16_t *path = u"Software\\Classes\\.conformance";
    test.expect(
        "added for the user", 0,
        RegCreateKeyExW(HKEY_CURRENT_USER, windowsText(path), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr));
    RegCloseKey(key);
    test.expect("removed for the user", 0, RegDeleteKeyW(HKEY_CURRENT_USER, windowsText(path)));
    test.expect("no longer a class", 2,
                RegOpenKeyExW(HKEY_CLASSES_ROOT, windowsText(u".conformance"), 0, KEY_READ, &key));
}

void classesOfTheMachine(Case &test)
{
    HKEY key = nullptr;
    test.expect("added as a class", 0,
                RegCreateKeyExW(HKEY_CLASSES_ROOT, windowsText(u".conformance"), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                &key, nullptr));
    RegCloseKey(key);
    test.expect("found for the machine", 0,
                RegOpenKeyExW(HKEY_LOCAL_MACHINE, windowsText(u"Software\\Classes\\.conformance"), 0, KEY_READ, &key));
    RegCloseKey(key);
    test.expect("removed", 0, RegDeleteKeyW(HKEY_CLASSES_ROOT, windowsText(u".conformance")));
}

} // namespace

Cases registryKeyCases()
{
    Cases cases;
    for (const auto &row : paths)
        cases.emplace_back(std::string("path: ") + row.name, [&row](Case &test) {
            runPath(test, row.path, row.opened, row.openedByW, row.added, row.removed);
        });
    for (const auto &row : rights)
        cases.emplace_back(std::string("rights: ") + row.name, [&row](Case &test) {
            runRights(test, row.access, row.queried, row.set, row.removed, row.enumerated);
        });
    for (const auto &row : handles)
        cases.emplace_back(std::string("handle: ") + row.name,
                           [&row](Case &test) { runHandle(test, row.value, row.closed); });
    cases.emplace_back("a closed handle", closedHandle);
    cases.emplace_back("closing a root does nothing", closedRoot);
    cases.emplace_back("opening without a path", openWithoutPath);
    cases.emplace_back("opening a key again that was closed", openedAgain);
    cases.emplace_back("opening without a place for the handle", openWithoutResult);
    cases.emplace_back("what became of a key to be added", dispositions);
    cases.emplace_back("adding a key with a reserved argument", createWithReserved);
    cases.emplace_back("adding a key below a handle for reading", createBelowAHandleForReading);
    cases.emplace_back("the longest name of a key", longestKeyName);
    cases.emplace_back("the use of a removed key", useOfARemovedKey);
    cases.emplace_back("removing a key by its own handle", removalOfAKeyByItsOwnHandle);
    cases.emplace_back("removing a missing key", removalOfAMissingKey);
    cases.emplace_back("removing a tree", removalOfATree);
    cases.emplace_back("emptying a tree", emptyingOfATree);
    cases.emplace_back("a class of the user", classesOfTheUser);
    cases.emplace_back("a class of the machine", classesOfTheMachine);
    return cases;
}
