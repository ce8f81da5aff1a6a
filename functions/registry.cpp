#include "functions/registry.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/Registry.h"
#include "platform/RegistryNames.h"
#include "sdk/fx/CFxString.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr DWORD BufferBytes = 4096; // longer data cannot be read

struct RootPrefix
{
    std::u16string_view text;
    HKEY root;
    std::size_t cutFrom;
};

// Where a value stands: the key below a root, and the value's name there.
class ValuePlace
{
public:
    // By the nodes of the path and, behind it, of the name, which is optional.
    explicit ValuePlace(const resbuf *pathNode);
    ValuePlace(const ValuePlace &) = delete;
    ValuePlace &operator=(const ValuePlace &) = delete;

    HKEY root() const { return m_root; } // null: the path names none
    LPCWSTR path() const { return windowsText(m_path); }
    LPCWSTR name() const { return windowsText(m_name); } // null: the key's unnamed value

private:
    void cut(const RootPrefix &prefix);

    const char16_t *m_path;
    const char16_t *m_name = nullptr;
    HKEY m_root = nullptr;
    std::u16string m_changedPath;
};

// The name of the root counts wherever in the path it stands, in capitals alone.
ValuePlace::ValuePlace(const resbuf *pathNode) : m_path(pathNode->resval.string)
{
    static const std::array<RootPrefix, 5> prefixes = {{{u"HKEY_CURRENT_USER\\", HKEY_CURRENT_USER, 0},
                                                        {u"HKEY_LOCAL_MACHINE\\", HKEY_LOCAL_MACHINE, 1},
                                                        {u"HKEY_CLASSES_ROOT\\", HKEY_CLASSES_ROOT, 1},
                                                        {u"HKEY_USERS\\", HKEY_USERS, 1},
                                                        {u"HKEY_CURRENT_CONFIG\\", HKEY_CURRENT_CONFIG, 1}}};
    const std::u16string_view path = textArgument(m_path);
    const auto found = std::ranges::find_if(prefixes, [path](const RootPrefix &prefix) { // nearly always at the start
        return isSameText(path.substr(0, prefix.text.size()), prefix.text) || path.find(prefix.text) != path.npos;
    });
    if (found == prefixes.end())
        return;
    cut(*found);
    if (isString(pathNode->rbnext))
        m_name = pathNode->rbnext->resval.string;
}

// As many characters as the name has are cut from the beginning of the path, or for all roots but the first from behind
// the first character: "HKEY_LOCAL_MACHINE\Software" leads to "Hoftware". LISP programs that write and read so find
// their values only where this stays so.
void ValuePlace::cut(const RootPrefix &prefix)
{
    m_root = prefix.root;
    if (prefix.cutFrom == 0) {
        m_path += prefix.text.size();
        return;
    }
    m_changedPath = m_path;
    m_changedPath.erase(prefix.cutFrom, prefix.text.size());
    m_path = m_changedPath.c_str();
}

// The buffer keeps what earlier calls have read: a value without a terminator, a number for example, ends where that
// happens to hold a zero. The last unit is never written and always one.
const char16_t *readValue(const ValuePlace &place)
{
    static std::array<char16_t, BufferBytes / sizeof(char16_t) + 1> buffer = {};
    HKEY key = nullptr;
    if (RegOpenKeyW(place.root(), place.path(), &key) != ERROR_SUCCESS)
        return nullptr;
    DWORD size = BufferBytes;
    const LSTATUS status =
        RegQueryValueExW(key, place.name(), nullptr, nullptr, reinterpret_cast<BYTE *>(buffer.data()), &size);
    RegCloseKey(key);
    return status == ERROR_SUCCESS ? buffer.data() : nullptr;
}

// The allocated length goes as the number of bytes, though it counts characters: half of the text is stored. That is
// what programs find in existing registries, and what they write must stay the same.
bool writeValue(const ValuePlace &place, const CFxString &data)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(place.root(), place.path(), 0, KEY_WRITE, &key) != ERROR_SUCCESS)
        return false;
    const LSTATUS status =
        RegSetValueExW(key, place.name(), 0, REG_SZ, reinterpret_cast<const BYTE *>(data.wide_strU()),
                       static_cast<DWORD>(data.getAllocLength()));
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

bool removeValue(const ValuePlace &place)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(place.root(), place.path(), 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS)
        return false;
    const LSTATUS status = RegDeleteValueW(key, place.name());
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

} // namespace

int acetRegGet()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const ValuePlace place(pathNode);
    if (place.root() == nullptr) {
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
    const ValuePlace place(pathNode);
    if (place.root() == nullptr) {
        activeLispHost()->releaseRb(pathNode);
        return StatusNormal;
    }
    resbuf *nameNode = pathNode->rbnext;
    resbuf *dataNode = isString(nameNode) ? nameNode->rbnext : nullptr;
    returnTruth(writeValue(place, CFxString(isString(dataNode) ? dataNode->resval.string : u"")));
    activeLispHost()->releaseRb(isString(nameNode) ? dataNode : nameNode);
    return StatusNormal;
}

int acetRegDel()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const ValuePlace place(pathNode);
    if (place.root() == nullptr) {
        activeLispHost()->releaseRb(pathNode);
        return StatusNormal;
    }
    returnTruth(removeValue(place));
    activeLispHost()->releaseRb(pathNode->rbnext);
    return StatusNormal;
}
