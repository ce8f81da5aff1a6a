#include "host/interpreter/files/FileOperations.h"

#include "host/interpreter/text/WildcardPattern.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace lisp {

namespace {

bool isSameFile(const QString &a, const QString &b)
{
    const QString path = QFileInfo(a).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(b).canonicalFilePath();
}

std::optional<std::int64_t> copyBytes(QFile &source, QFile &destination)
{
    constexpr qint64 BytesPerRead = qint64{256} * 1024;
    std::int64_t total = 0;
    for (;;) {
        const QByteArray bytes = source.read(BytesPerRead);
        if (bytes.isEmpty())
            break;
        if (destination.write(bytes) != bytes.size())
            return std::nullopt;
        total += bytes.size();
    }
    if (source.error() != QFileDevice::NoError || !destination.flush())
        return std::nullopt;
    return total;
}

std::u16string upperCase(const QString &text)
{
    return text.toUpper().toStdU16String();
}

// Everything but * and ? stands for itself in file patterns.
WildcardPattern filePattern(std::u16string_view pattern)
{
    if (pattern == u"*.*")
        return WildcardPattern(u"*");
    std::u16string escaped;
    for (const char16_t unit : upperCase(QStringView(pattern).toString())) {
        if (unit != u'*' && unit != u'?')
            escaped += u'`';
        escaped += unit;
    }
    return WildcardPattern(escaped);
}

QDir::Filters filtersOf(DirectoryListing listing)
{
    QDir::Filters filters = QDir::Hidden;
    if (listing != DirectoryListing::Files)
        filters |= QDir::Dirs;
    if (listing != DirectoryListing::Directories)
        filters |= QDir::Files | QDir::System; // System: broken links and special files, too
    return filters;
}

} // namespace

std::optional<std::int64_t> copyFile(const QString &source, const QString &destination, CopyMode mode)
{
    QFile from(source), to(destination);
    if (source.isEmpty() || destination.isEmpty() || QFileInfo(source).isDir() || isSameFile(source, destination) ||
        !from.open(QIODevice::ReadOnly))
        return std::nullopt;
    const qint64 sizeBefore = mode == CopyMode::Append ? QFileInfo(destination).size() : 0;
    if (!to.open(QIODevice::WriteOnly | (mode == CopyMode::Append ? QIODevice::Append : QIODevice::NewOnly)))
        return std::nullopt;
    const std::optional<std::int64_t> copied = copyBytes(from, to);
    if (!copied && mode == CopyMode::Append)
        to.resize(sizeBefore);
    else if (!copied)
        to.remove();
    return copied;
}

bool renameFile(const QString &from, const QString &to)
{
    return !from.isEmpty() && !to.isEmpty() && QFile::rename(from, to);
}

bool deleteFile(const QString &path)
{
    return !path.isEmpty() && QFile::remove(path);
}

bool makeDirectory(const QString &path)
{
    return !path.isEmpty() && QDir().mkdir(path);
}

bool isDirectory(const QString &path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

std::optional<std::int64_t> fileSize(const QString &path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.isReadable())
        return std::nullopt;
    return info.isDir() ? 0 : info.size();
}

std::optional<QDateTime> fileTime(const QString &path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        return std::nullopt;
    return info.lastModified().toLocalTime();
}

std::optional<std::vector<std::u16string>> directoryFiles(const QString &directory, std::u16string_view pattern,
                                                          DirectoryListing listing)
{
    const QDir folder(directory);
    if (!folder.exists())
        return std::nullopt;
    const WildcardPattern wanted = filePattern(pattern);
    std::vector<std::u16string> names;
    for (const QString &name : folder.entryList(filtersOf(listing), QDir::Name | QDir::IgnoreCase))
        if (wanted.matches(upperCase(name)))
            names.push_back(name.toStdU16String());
    return names;
}

} // namespace lisp
