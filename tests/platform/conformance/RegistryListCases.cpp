// What a key holds: RegEnumKeyExW, RegEnumValueW, RegQueryInfoKeyW.

#include "tests/platform/conformance/RegistryCases.h"

using conformance::Case;
using conformance::Cases;

namespace {

// The key holds one key and one text value, both of the name "name"; the text is "abcd" without its terminator.
const struct
{
    const char *name;
    DWORD index, room; // of the name, in units
    LSTATUS status;
    DWORD length;
} listings[] = {
    {"with room to spare", 0, 20, 0, 4},
    {"with just enough room", 0, 5, 0, 4},
    {"without room for the terminator", 0, 4, 234, 4},
    {"without room", 0, 0, 234, 0},
    {"behind the last", 1, 20, 259, 20},
    {"far behind the last", 4000000000u, 20, 259, 20},
};

void fill(const NewKey &key)
{
    key.add(u"name");
    key.set(u"name", REG_SZ, u"abcd", 4);
}

void runListing(Case &test, DWORD index, DWORD room, LSTATUS status, DWORD length)
{
    const NewKey key;
    fill(key);
    WCHAR name[20] = {};
    DWORD units = room;
    test.expect("RegEnumKeyExW", status, RegEnumKeyExW(key, index, name, &units, nullptr, nullptr, nullptr, nullptr));
    test.expect("length of the key's name", length, units);
    test.expect("the key's name", status == 0 ? u'n' : 0, name[0]);
    name[0] = 0;
    units = room;
    test.expect("RegEnumValueW", status, RegEnumValueW(key, index, name, &units, nullptr, nullptr, nullptr, nullptr));
    test.expect("length of the value's name", length, units);
    test.expect("the value's name", status == 0 ? u'n' : 0, name[0]);
}

void dataOfAListedValue(Case &test)
{
    const NewKey key;
    fill(key);
    WCHAR name[20];
    DWORD units = 20, type = 0, size = 8;
    BYTE data[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    test.expect("RegEnumValueW", 0, RegEnumValueW(key, 0, name, &units, nullptr, &type, data, &size));
    test.expect("type", REG_SZ, type);
    test.expect("size", 4, size);
    test.expect("data", "6100620000000101", hexadecimal(data, sizeof data));
}

void dataThatDoesNotFit(Case &test)
{
    const NewKey key;
    fill(key);
    WCHAR name[20];
    DWORD units = 20, type = 0, size = 3;
    BYTE data[4] = {1, 1, 1, 1};
    test.expect("RegEnumValueW", 234, RegEnumValueW(key, 0, name, &units, nullptr, &type, data, &size));
    test.expect("size", 4, size);
    test.expect("data", "01010101", hexadecimal(data, sizeof data));
}

void dataWithoutASize(Case &test)
{
    const NewKey key;
    fill(key);
    WCHAR name[20];
    DWORD units = 20;
    BYTE data[4];
    test.expect("RegEnumValueW", 87, RegEnumValueW(key, 0, name, &units, nullptr, nullptr, data, nullptr));
    test.expect("without a length", 87, RegEnumValueW(key, 0, name, nullptr, nullptr, nullptr, nullptr, nullptr));
}

void countsOfAnEmptyKey(Case &test)
{
    const NewKey key;
    DWORD keys = 9, longestKey = 9, values = 9, longestValue = 9, mostData = 9;
    test.expect("RegQueryInfoKeyW", 0,
                RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, &longestKey, nullptr, &values, &longestValue,
                                 &mostData, nullptr, nullptr));
    test.expect("keys", 0, keys);
    test.expect("longest key", 0, longestKey);
    test.expect("values", 0, values);
    test.expect("longest value", 0, longestValue);
    test.expect("most data", 0, mostData);
}

void countsOfAKey(Case &test)
{
    const NewKey key;
    for (const char16_t *below : {u"a", u"longest", u"b"})
        key.add(below);
    key.set(u"one", REG_BINARY, "1234567", 7);
    key.set(u"other", REG_BINARY, "1", 1);
    DWORD keys = 0, longestKey = 0, values = 0, longestValue = 0, mostData = 0;
    test.expect("RegQueryInfoKeyW", 0,
                RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, &longestKey, nullptr, &values, &longestValue,
                                 &mostData, nullptr, nullptr));
    test.expect("keys", 3, keys);
    test.expect("longest key", 7, longestKey);
    test.expect("values", 2, values);
    test.expect("longest value", 5, longestValue);
    test.expect("most data", 7, mostData);
}

void removalWhileListing(Case &test)
{
    const NewKey key;
    const int count = 20;
    for (char16_t name[] = u"a"; name[0] < u'a' + count; ++name[0])
        key.set(name, REG_BINARY, "x", 1);
    int removed = 0;
    WCHAR name[4];
    for (DWORD units = 4; RegEnumValueW(key, 0, name, &units, nullptr, nullptr, nullptr, nullptr) == 0; units = 4) {
        test.expect("RegDeleteValueW", 0, RegDeleteValueW(key, name));
        ++removed;
    }
    test.expect("all are found by their first index", count, removed);
}

} // namespace

Cases registryListCases()
{
    Cases cases;
    for (const auto &row : listings)
        cases.emplace_back(std::string("listing: ") + row.name,
                           [&row](Case &test) { runListing(test, row.index, row.room, row.status, row.length); });
    cases.emplace_back("the data of a listed value", dataOfAListedValue);
    cases.emplace_back("the data of a listed value that does not fit", dataThatDoesNotFit);
    cases.emplace_back("the data of a listed value without its size", dataWithoutASize);
    cases.emplace_back("the counts of an empty key", countsOfAnEmptyKey);
    cases.emplace_back("the counts of a key", countsOfAKey);
    cases.emplace_back("removing while listing", removalWhileListing);
    return cases;
}
