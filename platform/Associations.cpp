#include "platform/Associations.h"

#include "platform/CommandLineText.h"
#include "platform/DesktopAssociations.h"
#include "platform/RegistryAssociations.h"

#include <QStandardPaths>

namespace {

// The argument with what stands for its codes, a % and a character each. What a code is replaced by is not looked at
// again: names of files may hold anything. Codes without a value stay.
template <class ValueOf> QString expanded(const QString &argument, ValueOf valueOf)
{
    QString result;
    for (qsizetype place = 0; place < argument.size(); ++place) {
        const bool mayBeCode = argument[place] == u'%' && place + 1 < argument.size();
        const std::optional<QString> value = mayBeCode ? valueOf(argument[place + 1]) : std::nullopt;
        result += value ? *value : QString(argument[place]);
        place += value ? 1 : 0;
    }
    return result;
}

// The registry has the file's place as %1, anywhere in an argument. A command that does not ask for it does not get it.
QStringList withFileAsInRegistry(QStringList arguments, const QString &fileOrUrl)
{
    arguments.removeAll(QStringLiteral("%*")); // parameters, which documents do not have
    for (QString &argument : arguments)
        argument = expanded(argument, [&fileOrUrl](QChar code) {
            const bool isFile = code == u'1' || code == u'L' || code == u'l';
            return isFile ? std::optional(fileOrUrl) : std::nullopt;
        });
    return arguments;
}

// Desktop entries have the file's place as a field code, alone or inside an argument; a code that is not of a file or
// URL is left out, with its argument when that holds nothing else, and %% is a %.
// https://specifications.freedesktop.org/desktop-entry-spec/latest/exec-variables.html
QStringList withFileAsInDesktopEntry(QStringList arguments, const QString &fileOrUrl)
{
    bool isNamed = false;
    const auto valueOf = [&](QChar code) {
        const bool isFile = QStringView(u"fFuU").contains(code);
        isNamed |= isFile;
        const QString other = code == u'%' ? QString(code) : QString();
        return std::optional(isFile ? fileOrUrl : other);
    };
    QStringList result;
    for (const QString &argument : std::as_const(arguments))
        if (const QString text = expanded(argument, valueOf); argument.isEmpty() || !text.isEmpty())
            result.append(text);
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
    return callOf(desktopCommand(fileOrUrl), fileOrUrl, withFileAsInDesktopEntry);
}
