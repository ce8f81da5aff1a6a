#include "storage/ProfileFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace {

QString chosenFolder; // empty: the user's own

QString userProfileFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/lisphost");
}

} // namespace

QString profileFolder()
{
    return chosenFolder.isEmpty() ? userProfileFolder() : chosenFolder;
}

void setProfileFolder(const QString &folder)
{
    chosenFolder = folder.isEmpty() ? QString() : QDir::cleanPath(QDir::current().absoluteFilePath(folder));
}
