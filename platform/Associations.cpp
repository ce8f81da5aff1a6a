#include "platform/Associations.h"

#include "platform/CommandLineText.h"
#include "platform/DesktopAssociations.h"
#include "platform/RegistryAssociations.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

// The registry has the file's place as %1, anywhere in an argument. A command that does not ask for it does not get it.
QStringList withFileAsInRegistry(QStringList arguments, const QString &fileOrUrl)
{
    for (QString &argument : arguments)
        for (const QString &code : {QStringLiteral("%1"), QStringLiteral("%L"), QStringLiteral("%l")})
            argument.replace(code, fileOrUrl);
    arguments.removeAll(QStringLiteral("%*")); // parameters, which documents do not have
    return arguments;
}

// Desktop entries have the file's place as a field code; one that is not of a file or URL is left out, and %% is a %.
QStringList withFileAsInDesktopEntry(QStringList arguments, const QString &fileOrUrl)
{
    bool isNamed = false;
    QStringList result;
    for (const QString &argument : std::as_const(arguments)) {
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

// Nothing where the settings name a program that was removed.
std::optional<ProgramCall> callOf(QStringList words, const QString &fileOrUrl,
                                  QStringList (*withFile)(QStringList, const QString &))
{
    const QString program = words.isEmpty() ? QString() : QStandardPaths::findExecutable(words.takeFirst());
    if (program.isEmpty())
        return std::nullopt;
    return ProgramCall{program, withFile(words, fileOrUrl)};
}

} // namespace

std::optional<ProgramCall> associatedProgram(const QString &fileOrUrl, const QString &verb)
{
    std::optional<ProgramCall> call;
    if (const std::optional<QString> command = registryCommand(fileOrUrl, verb))
        call = callOf(argumentsOf(*command), fileOrUrl, withFileAsInRegistry);
    if (call || !(verb.isEmpty() || verb.compare(u"open", Qt::CaseInsensitive) == 0))
        return call;
    if (const std::optional<QString> command = desktopCommand(fileOrUrl))
        call = callOf(QProcess::splitCommand(*command), fileOrUrl, withFileAsInDesktopEntry);
    return call;
}
