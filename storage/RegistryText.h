#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The text form in which registries exchange keys (files .reg): a first line that names the form, keys in brackets, and
// below each its values.
//
//     Windows Registry Editor Version 5.00
//
//     [HKEY_CURRENT_USER\Software\Example]
//     @="the unnamed value"
//     "text"="a \"quoted\" C:\\path"
//     "number"=dword:0000002a
//     "bytes"=hex:01,02,03       (a backslash behind a comma lets the bytes go on in the next line that is no comment)
//     "another type"=hex(7):61,00,00,00,00,00
//     "gone"=-
//
//     [-HKEY_CURRENT_USER\Software\Gone]  ; a comment, which may stand in lines of its own, too
//
// What the system's own reader takes besides: blank lines before the first, and a comma behind the last byte.

inline constexpr std::u16string_view RegistryTextHeader = u"Windows Registry Editor Version 5.00";

// The names of the roots.
namespace RegistryRoot {

inline constexpr std::u16string_view Classes = u"HKEY_CLASSES_ROOT";
inline constexpr std::u16string_view CurrentUser = u"HKEY_CURRENT_USER";
inline constexpr std::u16string_view LocalMachine = u"HKEY_LOCAL_MACHINE";
inline constexpr std::u16string_view Users = u"HKEY_USERS";
inline constexpr std::u16string_view CurrentConfiguration = u"HKEY_CURRENT_CONFIG";

} // namespace RegistryRoot

// The types of values, as Windows numbers them.
enum RegistryType : std::uint32_t {
    RegistryText = 1,
    RegistryExpandableText = 2,
    RegistryBinary = 3,
    RegistryNumber = 4,
    RegistryTexts = 7,
};

// What a registry name may hold: UTF-16 units of one key's name (not of a path), and of a value's.
inline constexpr std::size_t RegistryKeyUnits = 255;
inline constexpr std::size_t RegistryValueUnits = 16383;

// A key's name holds printable characters alone, as Windows documents it, and a name of either kind no half of a
// surrogate pair: both would not survive in a text.
bool isRegistryKeyName(std::u16string_view name);
bool isRegistryValueName(std::u16string_view name);
bool isRegistryPath(std::u16string_view path); // beginning with the name of a root, in any case

// Is told what a text says, in its order. Paths begin with the name of a root.
class RegistryTextReceiver
{
public:
    virtual void addKey(std::u16string_view path) = 0; // the values that follow are this key's
    virtual void removeKey(std::u16string_view path) = 0;
    virtual void setValue(std::u16string_view name, std::uint32_t type, const QByteArray &data) = 0;
    virtual void removeValue(std::u16string_view name) = 0;

protected:
    ~RegistryTextReceiver() = default;
};

struct RegistryTextError
{
    int line; // from 1
    QString reason;
};

// Texts of the older form, REGEDIT4, hold their strings in 8 bits, also in hexadecimal: gives the UTF-16 text of such
// bytes.
using AnsiDecoder = std::u16string (*)(QByteArrayView bytes);

// Reads a text of either form. A line that cannot be understood is in the errors and passed over, a key line with the
// values below it: who wants all or nothing reads twice. Without a decoder REGEDIT4 is not understood.
std::vector<RegistryTextError> readRegistryText(std::u16string_view text, RegistryTextReceiver &receiver,
                                                AnsiDecoder decodeAnsi = nullptr);

// The same without a first line: a part of a text that this project writes, whose lines are counted from `firstLine`.
// Its numbers have all eight digits: one with less was cut short.
std::vector<RegistryTextError> readRegistryLines(std::u16string_view text, RegistryTextReceiver &receiver,
                                                 int firstLine = 1);
