#include "host/kernel/windows/FileRequest.h"

#include <QFileInfo>

namespace {

// Of getfiled. The others (no "Type it" button, library search, remote files) mean nothing to this host.
enum Flag : int {
    NewFile = 1,
    AnyExtension = 4,
    DefaultIsFolder = 16,
    NoOverwriteWarning = 32,
};

const QString allFiles = QStringLiteral("All files (*)");

QString filterOf(const QStringList &extensions)
{
    return QStringLiteral("%1 (*.%2)").arg(extensions.join(u", ").toUpper(), extensions.join(u" *."));
}

QStringList extensionsIn(const QString &text)
{
    QStringList extensions = text.split(u';', Qt::SkipEmptyParts);
    for (QString &extension : extensions) {
        extension = extension.trimmed();
        while (extension.startsWith(u'*') || extension.startsWith(u'.'))
            extension.remove(0, 1);
    }
    extensions.removeAll(QString());
    return extensions;
}

// "Drawings|*.dwg;*.dxf|All|*" in Qt's form.
QStringList filtersFromPairs(const QString &text)
{
    const QStringList parts = text.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].left(parts[i].indexOf(u'(')).trimmed();
        filters += QStringLiteral("%1 (%2)").arg(name, QString(parts[i + 1]).replace(u';', u' '));
    }
    return filters;
}

QStringList wholeFilters(const QString &text)
{
    if (text.contains(u'|'))
        return filtersFromPairs(text);
    return text.contains(u'(') ? text.split(QStringLiteral(";;"), Qt::SkipEmptyParts) : QStringList();
}

bool isFolderName(const QString &name)
{
    return name.endsWith(u'/') || name.endsWith(u'\\');
}

} // namespace

FileRequest FileRequest::fromGetfiled(const QString &title, const QString &defaultName, const QString &extension,
                                      int flags)
{
    FileRequest request;
    request.mode = (flags & NewFile) != 0 ? Mode::Save : Mode::Open;
    request.overwriting = (flags & NoOverwriteWarning) != 0 ? Overwriting::Silent : Overwriting::Confirmed;
    request.title = title;
    if ((flags & DefaultIsFolder) != 0 || isFolderName(defaultName)) {
        request.folder = defaultName;
    } else if (!defaultName.isEmpty()) {
        const QFileInfo file(defaultName);
        request.folder = file.path() == u"." ? QString() : file.path();
        request.fileName = file.fileName();
    }
    request.nameFilters = wholeFilters(extension);
    if (!request.nameFilters.isEmpty())
        return request;
    const QStringList extensions = extensionsIn(extension);
    if (!extensions.isEmpty())
        request.nameFilters += filterOf(extensions);
    if (extensions.isEmpty() || (flags & AnyExtension) != 0)
        request.nameFilters += allFiles;
    if (!extensions.isEmpty() && (flags & AnyExtension) == 0)
        request.extension = extensions.first();
    return request;
}
