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

// What the desktop opens this file or URL with; nothing when no program is associated with its kind.
std::optional<ProgramCall> associatedProgram(const QString &fileOrUrl);
