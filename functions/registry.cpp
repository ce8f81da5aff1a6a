#include "functions/registry.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/Registry.h"
#include "sdk/fx/CFxString.h"

#include <QString>

#include <array>

namespace {

constexpr DWORD BufferBytes = 4096; // longer data cannot be read

struct RootPrefix
{
    QStringView text;
    HKEY root;
    qsizetype cutFrom;
};

// A key below a root, and the optional name of a value there.
struct ValuePlace
{
    HKEY root = nullptr; // null: the path names no root
    QString path;
    const char16_t *name = nullptr; // null: the key's unnamed value

    LPCWSTR windowsPath() const { return reinterpret_cast<LPCWSTR>(path.utf16()); }
    LPCWSTR windowsName() const { return windowsText(name); }
};

// Cuts the name of the root off a path. It counts wherever in the path it stands, in capitals alone; but as many
// characters as it has are cut from the beginning of the path, or for all roots but the first from behind the first
// character: "HKEY_LOCAL_MACHINE\Software" leads to "Hoftware". LISP programs that write and read so find their values
// only where this stays so.
HKEY cutRoot(QString &path)
{
    static const std::array<RootPrefix, 5> prefixes = {{{u"HKEY_CURRENT_USER\\", HKEY_CURRENT_USER, 0},
                                                        {u"HKEY_LOCAL_MACHINE\\", HKEY_LOCAL_MACHINE, 1},
                                                        {u"HKEY_CLASSES_ROOT\\", HKEY_CLASSES_ROOT, 1},
                                                        {u"HKEY_USERS\\", HKEY_USERS, 1},
                                                        {u"HKEY_CURRENT_CONFIG\\", HKEY_CURRENT_CONFIG, 1}}};
    for (const RootPrefix &prefix : prefixes) {
        if (path.contains(prefix.text)) {
            path.remove(prefix.cutFrom, prefix.text.size());
            return prefix.root;
        }
    }
    return nullptr;
}

bool isText(const resbuf *node)
{
    return node != nullptr && node->restype == TypeString;
}

ValuePlace placeOf(const resbuf *pathNode)
{
    ValuePlace place;
    place.path = textOf(pathNode);
    place.root = cutRoot(place.path);
    if (isText(pathNode->rbnext))
        place.name = pathNode->rbnext->resval.string;
    return place;
}

// The buffer keeps what earlier calls have read: a value without a terminator, a number for example, ends where that
// happens to hold a zero. The last unit is never written and always one.
const char16_t *readValue(const ValuePlace &place)
{
    static std::array<char16_t, BufferBytes / sizeof(char16_t) + 1> buffer = {};
    HKEY key = nullptr;
    if (RegOpenKeyW(place.root, place.windowsPath(), &key) != ERROR_SUCCESS)
        return nullptr;
    DWORD size = BufferBytes;
    const LSTATUS status =
        RegQueryValueExW(key, place.windowsName(), nullptr, nullptr, reinterpret_cast<BYTE *>(buffer.data()), &size);
    RegCloseKey(key);
    return status == ERROR_SUCCESS ? buffer.data() : nullptr;
}

// The allocated length goes as the number of bytes, though it counts characters: half of the text is stored. That is
// what programs find in existing registries, and what they write must stay the same.
bool writeValue(const ValuePlace &place, const CFxString &data)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(place.root, place.windowsPath(), 0, KEY_WRITE, &key) != ERROR_SUCCESS)
        return false;
    const LSTATUS status =
        RegSetValueExW(key, place.windowsName(), 0, REG_SZ, reinterpret_cast<const BYTE *>(data.wide_strU()),
                       static_cast<DWORD>(data.getAllocLength()));
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

bool removeValue(const ValuePlace &place)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(place.root, place.windowsPath(), 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS)
        return false;
    const LSTATUS status = RegDeleteValueW(key, place.windowsName());
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

} // namespace

int acetRegGet()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const ValuePlace place = placeOf(pathNode);
    if (place.root == nullptr) {
        activeLispHost()->releaseRb(pathNode);
        return StatusNormal; // no result, as in all other failures
    }
    if (const char16_t *value = readValue(place))
        activeLispHost()->retWStr(value);
    activeLispHost()->releaseRb(pathNode->rbnext);
    return StatusNormal;
}

int acetRegPut()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const ValuePlace place = placeOf(pathNode);
    if (place.root == nullptr) {
        activeLispHost()->releaseRb(pathNode);
        return StatusNormal;
    }
    resbuf *nameNode = pathNode->rbnext;
    resbuf *dataNode = isText(nameNode) ? nameNode->rbnext : nullptr;
    returnTruth(writeValue(place, CFxString(isText(dataNode) ? dataNode->resval.string : u"")));
    activeLispHost()->releaseRb(isText(nameNode) ? dataNode : nameNode);
    return StatusNormal;
}

int acetRegDel()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const ValuePlace place = placeOf(pathNode);
    if (place.root == nullptr) {
        activeLispHost()->releaseRb(pathNode);
        return StatusNormal;
    }
    returnTruth(removeValue(place));
    activeLispHost()->releaseRb(pathNode->rbnext);
    return StatusNormal;
}
