// Which calls of the registry each function makes. They are written down, not done.

#include "functions/registry.h"

#include "platform/Registry.h"
#include "tests/support/HandlerTest.h"
#include "tests/support/StandIn.h"

#include <algorithm>

namespace {

using Calls = std::vector<std::string>;

Calls calls;
LSTATUS openStatus = ERROR_SUCCESS, valueStatus = ERROR_SUCCESS;
const HKEY openedKey = reinterpret_cast<HKEY>(std::uintptr_t{64});

std::string described(HKEY key)
{
    return key == openedKey ? "opened" : key == HKEY_CURRENT_USER ? "HKEY_CURRENT_USER" : "other";
}

std::string described(LPCWSTR text)
{
    return text != nullptr ? QStringView(text).toString().toStdString() : "null";
}

LSTATUS open(const std::string &call, HKEY *result)
{
    calls.push_back(call);
    *result = openStatus == ERROR_SUCCESS ? openedKey : nullptr;
    return openStatus;
}

LSTATUS use(const std::string &call)
{
    calls.push_back(call);
    return valueStatus;
}

} // namespace

STAND_IN(LSTATUS, RegOpenKeyW, (HKEY key, LPCWSTR path, HKEY *result))
{
    return open("RegOpenKeyW " + described(key) + ' ' + described(path), result);
}

STAND_IN(LSTATUS, RegOpenKeyExW, (HKEY key, LPCWSTR path, DWORD options, REGSAM access, HKEY *result))
{
    return open("RegOpenKeyExW " + described(key) + ' ' + described(path) + ' ' + std::to_string(options) + ' ' +
                    std::to_string(access),
                result);
}

STAND_IN(LSTATUS, RegQueryValueExW, (HKEY key, LPCWSTR name, DWORD *reserved, DWORD *type, BYTE *data, DWORD *size))
{
    EXPECT_EQ(reserved, nullptr);
    EXPECT_EQ(type, nullptr); // none is wanted
    if (valueStatus == ERROR_SUCCESS)
        std::fill_n(data, 4, BYTE{0});
    return use("RegQueryValueExW " + described(key) + ' ' + described(name) + ' ' + std::to_string(*size));
}

STAND_IN(LSTATUS, RegSetValueExW, (HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE *, DWORD size))
{
    EXPECT_EQ(reserved, 0U);
    return use("RegSetValueExW " + described(key) + ' ' + described(name) + ' ' + std::to_string(type) + ' ' +
               std::to_string(size));
}

STAND_IN(LSTATUS, RegDeleteValueW, (HKEY key, LPCWSTR name))
{
    return use("RegDeleteValueW " + described(key) + ' ' + described(name));
}

STAND_IN(LSTATUS, RegCloseKey, (HKEY key))
{
    calls.push_back("RegCloseKey " + described(key));
    return ERROR_SUCCESS;
}

namespace {

class RegistryCalls : public HandlerTest
{
protected:
    RegistryCalls() { openStatus = valueStatus = ERROR_SUCCESS; }

    Calls callsOf(LispHandler handler, const Arguments &arguments)
    {
        calls.clear();
        call(handler, arguments);
        return calls;
    }

    const Argument m_path = text(u"HKEY_CURRENT_USER\\Software\\Key");
    const std::string m_open = "RegOpenKeyExW HKEY_CURRENT_USER Software\\Key 0 ";
};

} // namespace

TEST_F(RegistryCalls, GetOpensQueriesIntoARoomOf4096BytesAndClosesInAnyCase)
{
    const std::string opening = "RegOpenKeyW HKEY_CURRENT_USER Software\\Key";
    const Calls expected = {opening, "RegQueryValueExW opened x 4096", "RegCloseKey opened"};
    EXPECT_EQ(callsOf(acetRegGet, {m_path, text(u"x")}), expected);
    valueStatus = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(callsOf(acetRegGet, {m_path, text(u"x")}), expected);
    EXPECT_EQ(callsOf(acetRegGet, {m_path}),
              (Calls{opening, "RegQueryValueExW opened null 4096", "RegCloseKey opened"}));
    openStatus = ERROR_ACCESS_DENIED;
    EXPECT_EQ(callsOf(acetRegGet, {m_path, text(u"x")}), Calls{opening});
}

TEST_F(RegistryCalls, PutOpensWithTheMask0x20006AndClosesInAnyCase)
{
    const std::string opening = m_open + std::to_string(0x20006);
    const Calls expected = {opening, "RegSetValueExW opened x 1 5", "RegCloseKey opened"};
    EXPECT_EQ(callsOf(acetRegPut, {m_path, text(u"x"), text(u"abcde")}), expected);
    valueStatus = ERROR_ACCESS_DENIED;
    EXPECT_EQ(callsOf(acetRegPut, {m_path, text(u"x"), text(u"abcde")}), expected);
    openStatus = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(callsOf(acetRegPut, {m_path, text(u"x"), text(u"abcde")}), Calls{opening});
}

TEST_F(RegistryCalls, DelOpensWithTheMask2AndClosesInAnyCase)
{
    const std::string opening = m_open + '2';
    const Calls expected = {opening, "RegDeleteValueW opened x", "RegCloseKey opened"};
    EXPECT_EQ(callsOf(acetRegDel, {m_path, text(u"x")}), expected);
    valueStatus = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(callsOf(acetRegDel, {m_path, text(u"x")}), expected);
    openStatus = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(callsOf(acetRegDel, {m_path, text(u"x")}), Calls{opening});
}

TEST_F(RegistryCalls, APathThatBeginsWithHkcuYieldsNilWithoutTouchingTheRegistry)
{
    for (const LispHandler handler : {acetRegGet, acetRegPut, acetRegDel})
        EXPECT_EQ(callsOf(handler, {text(u"HKCU\\Software\\Key"), text(u"x"), text(u"1")}), Calls{});
}
