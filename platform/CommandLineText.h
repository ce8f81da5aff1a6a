#pragma once

#include <QStringList>

// The arguments in a Windows command line: blanks separate them, double quotes hold them together, and backslashes
// before a double quote escape it: https://learn.microsoft.com/cpp/c-language/parsing-c-command-line-arguments
QStringList argumentsOf(const QString &commandLine);
