#include "host/interpreter/files/TemporaryFileNames.h"

#include "host/interpreter/files/FileNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace lisp {

namespace {

// The names of this process: counts them, and deletes their files at its end.
class GivenNames
{
public:
    ~GivenNames()
    {
        for (const QString &path : m_paths)
            QFile::remove(path);
    }
    // Three characters, different each time until all are used up.
    QString nextCounter()
    {
        constexpr int Radix = 36;
        m_count = (m_count + 1) % Counts;
        return QString::number(m_count, Radix).toUpper().rightJustified(3, u'0');
    }
    // The path must be absolute: the current folder may change until the end.
    void add(const QString &path) { m_paths.append(path); }

    static constexpr int Counts = 36 * 36 * 36;

private:
    int m_count = 0;
    QStringList m_paths;
};

GivenNames &givenNames()
{
    static GivenNames names;
    return names;
}

QString directoryPath(std::u16string_view pattern, std::optional<std::u16string_view> directory)
{
    if (directory)
        return filePath(*directory);
    if (const std::u16string own = fileNameDirectory(pattern); !own.empty())
        return filePath(own);
    for (const char *variable : {"TMP", "TEMP"})
        if (const QString folder = qEnvironmentVariable(variable); !folder.isEmpty())
            return folder;
    return QDir::tempPath();
}

QString extensionText(std::u16string_view pattern, std::optional<std::u16string_view> extension)
{
    if (!extension)
        return QString::fromStdU16String(fileNameExtension(pattern).value_or(u""));
    const bool needsDot = !extension->empty() && !extension->starts_with(u'.');
    return (needsDot ? QStringLiteral(".") : QString()) + QStringView(*extension).toString();
}

} // namespace

std::optional<std::u16string> temporaryFileName(std::optional<std::u16string_view> pattern,
                                                std::optional<std::u16string_view> directory,
                                                std::optional<std::u16string_view> extension)
{
    constexpr int BaseLength = 5;
    const std::u16string_view named = pattern.value_or(u"$VL~~");
    const QDir folder(directoryPath(named, directory));
    if (!folder.exists())
        return std::nullopt;
    const QString base = QString::fromStdU16String(fileNameBase(named)).left(BaseLength);
    const QString end = extensionText(named, extension);
    for (int attempt = 0; attempt < GivenNames::Counts; ++attempt) {
        const QString path = QDir::cleanPath(folder.absoluteFilePath(base + givenNames().nextCounter() + end));
        if (QFileInfo::exists(path))
            continue;
        givenNames().add(path);
        return QDir::toNativeSeparators(path).toStdU16String();
    }
    return std::nullopt;
}

} // namespace lisp
