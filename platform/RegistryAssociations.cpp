#include "platform/RegistryAssociations.h"

#include "platform/Registry.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include <string>

namespace {

// Environment variables in a value that is meant to name them; what is none stays as it is.
QString expanded(const QString &text)
{
    static const QRegularExpression reference(QStringLiteral("%([^%\\s\"]+)%"));
    QString result;
    qsizetype end = 0;
    for (QRegularExpressionMatchIterator matches = reference.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += QStringView(text).mid(end, match.capturedStart() - end);
        result += qEnvironmentVariable(match.captured(1).toLocal8Bit().constData(), match.captured());
        end = match.capturedEnd();
    }
    return result += QStringView(text).mid(end);
}

// The text of a key's unnamed value in the classes of a root; nothing when key or value are missing, or the value is no
// text.
std::optional<QString> textOfKey(HKEY root, const QString &kind)
{
    HKEY key = nullptr;
    const QString path = QStringLiteral("Software\\Classes\\") + kind;
    if (RegOpenKeyExW(root, reinterpret_cast<LPCWSTR>(path.utf16()), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return std::nullopt;
    DWORD type = REG_NONE, size = 0;
    std::u16string text;
    LSTATUS status = RegQueryValueExW(key, nullptr, nullptr, &type, nullptr, &size);
    if (status == ERROR_SUCCESS) {
        text.resize(size / sizeof(char16_t) + 1); // values need no terminator
        status = RegQueryValueExW(key, nullptr, nullptr, &type, reinterpret_cast<BYTE *>(text.data()), &size);
    }
    RegCloseKey(key);
    if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ))
        return std::nullopt;
    const QString value = QStringView(text.c_str()).toString();
    return type == REG_EXPAND_SZ ? expanded(value) : value;
}

// HKEY_CLASSES_ROOT shows both parts as one, and the user's comes first value by value: a key of the user's without the
// value, which other programs make for what they remember of a kind, does not hide the machine's.
std::optional<QString> textOfKey(const QString &kind)
{
    const std::optional<QString> own = textOfKey(HKEY_CURRENT_USER, kind);
    return own ? own : textOfKey(HKEY_LOCAL_MACHINE, kind);
}

// The key that has the verbs of a file or URL.
QString kindOf(const QString &fileOrUrl)
{
    const QFileInfo file(fileOrUrl);
    if (file.isDir())
        return QStringLiteral("Directory");
    if (!file.exists())
        return QUrl(fileOrUrl).scheme();
    const QString extension = u'.' + file.suffix();
    return textOfKey(extension).value_or(extension);
}

} // namespace

std::optional<QString> registryCommand(const QString &fileOrUrl, const QString &verb)
{
    const QString kind = kindOf(fileOrUrl);
    if (kind.isEmpty())
        return std::nullopt;
    const QString shell = kind + QStringLiteral("\\shell");
    QString chosen = verb.isEmpty() ? textOfKey(shell).value_or(QString()) : verb;
    if (chosen.isEmpty())
        chosen = QStringLiteral("open");
    return textOfKey(shell + u'\\' + chosen + QStringLiteral("\\command"));
}
