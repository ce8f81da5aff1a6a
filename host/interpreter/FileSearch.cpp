#include "host/interpreter/FileSearch.h"

#include "host/interpreter/files/FileNames.h"

#include <QDir>
#include <QFileInfo>

namespace lisp {

std::optional<std::u16string> findFile(std::u16string_view name, const std::vector<std::u16string> &folders)
{
    const QString path = filePath(name);
    if (path.isEmpty())
        return std::nullopt;
    QStringList places{QDir::currentPath()};
    if (!path.contains(u'/'))
        for (const std::u16string &folder : folders)
            places.append(QString::fromStdU16String(folder));
    for (const QString &place : places) {
        const QFileInfo candidate(QDir(place), path);
        if (candidate.exists())
            return QDir::cleanPath(candidate.absoluteFilePath()).toStdU16String();
    }
    return std::nullopt;
}

} // namespace lisp
