#include "platform/Associations.h"

#include "platform/DesktopAssociations.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

// Desktop entries have the file's place as a field code; one that is not of a file or URL is left out, and %% is a %.
QStringList withFile(QStringList arguments, const QString &fileOrUrl)
{
    bool isNamed = false;
    QStringList result;
    for (const QString &argument : arguments) {
        if (argument == u"%f" || argument == u"%F" || argument == u"%u" || argument == u"%U") {
            result.append(fileOrUrl);
            isNamed = true;
        } else if (argument.size() != 2 || argument[0] != u'%' || argument[1] == u'%') {
            result.append(QString(argument).replace(QStringLiteral("%%"), QStringLiteral("%")));
        }
    }
    if (!isNamed)
        result.append(fileOrUrl);
    return result;
}

} // namespace

std::optional<ProgramCall> associatedProgram(const QString &fileOrUrl)
{
    const std::optional<QString> command = desktopCommand(fileOrUrl);
    QStringList words = command ? QProcess::splitCommand(*command) : QStringList();
    if (words.isEmpty())
        return std::nullopt;
    const QString program = QStandardPaths::findExecutable(words.takeFirst());
    if (program.isEmpty()) // the settings name a program that was removed
        return std::nullopt;
    return ProgramCall{program, withFile(words, fileOrUrl)};
}
