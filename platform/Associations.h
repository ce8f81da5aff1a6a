#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// A program with its arguments.
struct ProgramCall
{
    QString program; // a full path
    QStringList arguments;
};

// What a file or URL is opened with: the program that HKEY_CLASSES_ROOT has for the verb, else, for the verb "open" and
// for none, the one of the desktop's settings. Nothing when no program is associated with its kind.
std::optional<ProgramCall> associatedProgram(const QString &fileOrUrl, const QString &verb);
