// Values: writing, reading, removing.

#include "tests/platform/conformance/RegistryCases.h"

#include <cstring>

using conformance::Case;
using conformance::Cases;

namespace {

constexpr DWORD BufferBytes = 16;

// A value is written with `size` bytes of the data, then read with `room` bytes of a buffer full of 0xaa.
const struct
{
    const char *name;
    DWORD type;
    const char16_t *data;
    DWORD size, room;
    LSTATUS status;
    DWORD length; // as reported
    const char *buffer;
} readings[] = {
    {"a text with its terminator", REG_SZ, u"abc", 8, 16, 0, 8, "6100620063000000aaaaaaaaaaaaaaaa"},
    {"a text whose terminator was not counted", REG_SZ, u"abc", 6, 16, 0, 8, "6100620063000000aaaaaaaaaaaaaaaa"},
    {"the first half of a text", REG_SZ, u"abcd", 4, 16, 0, 4, "610062000000aaaaaaaaaaaaaaaaaaaa"},
    {"half a text with room for half a terminator", REG_SZ, u"abcd", 4, 5, 0, 4, "61006200aaaaaaaaaaaaaaaaaaaaaaaa"},
    {"half a text with room for no terminator", REG_SZ, u"abcd", 4, 4, 0, 4, "61006200aaaaaaaaaaaaaaaaaaaaaaaa"},
    {"half a text with room for its terminator", REG_SZ, u"abcd", 4, 6, 0, 4, "610062000000aaaaaaaaaaaaaaaaaaaa"},
    {"a text cut within a character", REG_SZ, u"abcd", 5, 16, 0, 5, "61006200630000aaaaaaaaaaaaaaaaaa"},
    {"a text of no bytes", REG_SZ, u"", 0, 16, 0, 0, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"an empty text", REG_SZ, u"", 2, 16, 0, 2, "0000aaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a text that fits exactly", REG_SZ, u"abcdefg", 16, 16, 0, 16, "61006200630064006500660067000000"},
    {"a text that does not fit", REG_SZ, u"abc", 8, 7, 234, 8, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a text and no room at all", REG_SZ, u"abc", 8, 0, 234, 8, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a text to expand", REG_EXPAND_SZ, u"%a%", 8, 16, 0, 8, "2500610025000000aaaaaaaaaaaaaaaa"},
    {"a text to expand without its terminator", REG_EXPAND_SZ, u"%a%b", 6, 16, 0, 6,
     "2500610025000000aaaaaaaaaaaaaaaa"},
    {"several texts", REG_MULTI_SZ, u"a\0b\0", 10, 16, 0, 10, "61000000620000000000aaaaaaaaaaaa"},
    {"several texts without terminators", REG_MULTI_SZ, u"abcd", 4, 16, 0, 4, "610062000000aaaaaaaaaaaaaaaaaaaa"},
    {"a number", REG_DWORD, u"\u0201\u0403", 4, 16, 0, 4, "01020304aaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a number that does not fit", REG_DWORD, u"\u0201\u0403", 4, 3, 234, 4, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a number of three bytes", REG_DWORD, u"\u0201\u0403", 3, 16, 0, 3, "010203aaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a large number", REG_QWORD, u"\u0201\u0403\u0605\u0807", 8, 16, 0, 8, "0102030405060708aaaaaaaaaaaaaaaa"},
    {"bytes", REG_BINARY, u"\u0201\u0403", 4, 16, 0, 4, "01020304aaaaaaaaaaaaaaaaaaaaaaaa"},
    {"no bytes", REG_BINARY, u"", 0, 16, 0, 0, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"bytes of no type", REG_NONE, u"\u0201", 2, 16, 0, 2, "0102aaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"a type that nobody knows", 12345, u"\u0201", 2, 16, 0, 2, "0102aaaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    {"half of a surrogate pair", REG_SZ, u"\xd83d", 4, 16, 0, 4, "3dd80000aaaaaaaaaaaaaaaaaaaaaaaa"},
};

void runReading(Case &test, DWORD type, const char16_t *data, DWORD size, DWORD room, LSTATUS status, DWORD length,
                const char *expected)
{
    const NewKey key;
    test.expect("RegSetValueExW", 0, key.set(u"value", type, data, size));
    BYTE buffer[BufferBytes];
    std::memset(buffer, 0xaa, sizeof buffer);
    DWORD readType = 999;
    DWORD readSize = room;
    test.expect("RegQueryValueExW", status,
                RegQueryValueExW(key, windowsText(u"value"), nullptr, &readType, buffer, &readSize));
    test.expect("type", type, readType);
    test.expect("size", length, readSize);
    test.expect("buffer", expected, hexadecimal(buffer, sizeof buffer));
    readSize = 999;
    test.expect("RegQueryValueExW without a buffer", 0,
                RegQueryValueExW(key, windowsText(u"VALUE"), nullptr, nullptr, nullptr, &readSize));
    test.expect("size without a buffer", length, readSize);
}

// Names by their length.
const struct
{
    const char *name;
    std::size_t units;
    LSTATUS set, queried, removed;
} names[] = {
    {"no name", 0, 0, 0, 0},
    {"a name of one unit", 1, 0, 0, 0},
    {"a name as long as that of a key", 255, 0, 0, 0},
    {"a name longer than that of a key", 256, 0, 0, 0},
    {"the longest name", 16383, 0, 0, 0},
    {"a name that is too long", 16384, 87, 2, 2},
};

void runName(Case &test, std::size_t units, LSTATUS set, LSTATUS queried, LSTATUS removed)
{
    const NewKey key;
    const std::u16string name(units, u'n');
    DWORD size = 0;
    test.expect("RegSetValueExW", set, key.set(name.c_str(), REG_SZ, u"x", 4));
    test.expect("RegQueryValueExW", queried,
                RegQueryValueExW(key, windowsText(name.c_str()), nullptr, nullptr, nullptr, &size));
    test.expect("RegDeleteValueW", removed, RegDeleteValueW(key, windowsText(name.c_str())));
    test.expect("RegDeleteValueW again", 2, RegDeleteValueW(key, windowsText(name.c_str())));
}

void unnamedValue(Case &test)
{
    const NewKey key;
    DWORD size = 0;
    test.expect("missing", 2, RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, &size));
    test.expect("set", 0, key.set(nullptr, REG_SZ, u"x", 4));
    test.expect("by an empty name", 0, RegQueryValueExW(key, windowsText(u""), nullptr, nullptr, nullptr, &size));
    test.expect("removed", 0, RegDeleteValueW(key, nullptr));
    test.expect("removed again", 2, RegDeleteValueW(key, windowsText(u"")));
}

void missingValue(Case &test)
{
    const NewKey key;
    BYTE buffer[4];
    DWORD size = 4;
    DWORD type = 999;
    test.expect("RegQueryValueExW", 2, RegQueryValueExW(key, windowsText(u"x"), nullptr, &type, buffer, &size));
    test.expect("RegDeleteValueW", 2, RegDeleteValueW(key, windowsText(u"x")));
}

void invalidArguments(Case &test)
{
    const NewKey key;
    BYTE buffer[4];
    DWORD size = 4;
    test.expect("set", 0, key.set(u"x", REG_BINARY, "x", 1));
    test.expect("a buffer without a size", 87,
                RegQueryValueExW(key, windowsText(u"x"), nullptr, nullptr, buffer, nullptr));
    test.expect("a reserved argument", 87, RegQueryValueExW(key, windowsText(u"x"), &size, nullptr, buffer, &size));
    test.expect("nothing to answer", 0, RegQueryValueExW(key, windowsText(u"x"), nullptr, nullptr, nullptr, nullptr));
}

void dataThatIsNotThere(Case &test)
{
    const NewKey key;
    test.expect("no data of no bytes", 0, key.set(u"x", REG_SZ, nullptr, 0));
    test.expect("no data of four bytes", 998, key.set(u"x", REG_BINARY, nullptr, 4));
}

void replacedValue(Case &test)
{
    const NewKey key;
    test.expect("set", 0, key.set(u"Name", REG_SZ, u"old", 8));
    test.expect("set again", 0, key.set(u"NAME", REG_DWORD, u"\u0001\u0000", 4));
    WCHAR name[8] = {};
    DWORD length = 8;
    DWORD type = 0;
    test.expect("the first value", 0, RegEnumValueW(key, 0, name, &length, nullptr, &type, nullptr, nullptr));
    test.expect("type", REG_DWORD, type);
    test.expect("it keeps the case of its name", u'a', name[1]);
    length = 8;
    test.expect("there is no other", 259, RegEnumValueW(key, 1, name, &length, nullptr, &type, nullptr, nullptr));
}

void caseBeyondAscii(Case &test)
{
    const NewKey key;
    DWORD size = 0;
    test.expect("set", 0, key.set(u"\u00e4\u03b1\u0436", REG_BINARY, "x", 1));
    test.expect("found", 0,
                RegQueryValueExW(key, windowsText(u"\u00c4\u0391\u0416"), nullptr, nullptr, nullptr, &size));
    test.expect("the sharp s has no other case", 2,
                RegQueryValueExW(key, windowsText(u"SS"), nullptr, nullptr, nullptr, &size));
}

void backslashInAName(Case &test)
{
    const NewKey key;
    DWORD size = 0;
    test.expect("set", 0, key.set(u"a\\b\"c\"", REG_BINARY, "x", 1));
    test.expect("found", 0, RegQueryValueExW(key, windowsText(u"A\\B\"C\""), nullptr, nullptr, nullptr, &size));
    HKEY below = nullptr;
    test.expect("it is no key", 2, key.open(u"a", KEY_READ, &below));
}

// Buffers as large as those that programs usually have.
const struct
{
    const char *name;
    DWORD units;
    LSTATUS status;
} largeTexts[] = {
    {"a text of 4,094 bytes in 4,096", 2047, 0},
    {"a text of 4,096 bytes in 4,096", 2048, 0},
    {"a text of 4,098 bytes in 4,096", 2049, 234},
};

void runLargeText(Case &test, DWORD units, LSTATUS status)
{
    const NewKey key;
    const std::u16string text(units, u't');
    test.expect("set", 0, key.set(u"x", REG_BINARY, text.data(), units * 2));
    static BYTE buffer[4096];
    DWORD size = sizeof buffer;
    test.expect("RegQueryValueExW", status, RegQueryValueExW(key, windowsText(u"x"), nullptr, nullptr, buffer, &size));
    test.expect("size", units * 2, size);
}

} // namespace

Cases registryValueCases()
{
    Cases cases;
    for (const auto &row : readings)
        cases.emplace_back(std::string("reading: ") + row.name, [&row](Case &test) {
            runReading(test, row.type, row.data, row.size, row.room, row.status, row.length, row.buffer);
        });
    for (const auto &row : names)
        cases.emplace_back(std::string("name: ") + row.name,
                           [&row](Case &test) { runName(test, row.units, row.set, row.queried, row.removed); });
    for (const auto &row : largeTexts)
        cases.emplace_back(row.name, [&row](Case &test) { runLargeText(test, row.units, row.status); });
    cases.emplace_back("the unnamed value", unnamedValue);
    cases.emplace_back("a missing value", missingValue);
    cases.emplace_back("invalid arguments of a query", invalidArguments);
    cases.emplace_back("data that is not there", dataThatIsNotThere);
    cases.emplace_back("a value that replaces another", replacedValue);
    cases.emplace_back("the case of letters beyond ASCII", caseBeyondAscii);
    cases.emplace_back("a backslash in the name of a value", backslashInAName);
    return cases;
}
