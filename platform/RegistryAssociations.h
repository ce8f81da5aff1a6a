#pragma once

#include <QString>

#include <optional>

// The command line that HKEY_CLASSES_ROOT has for a verb of a file's kind or of a URL's scheme; nothing when there is
// none. Without a verb it is the one that the kind names, "open" as a rule.
// https://learn.microsoft.com/windows/win32/shell/fa-file-types
std::optional<QString> registryCommand(const QString &fileOrUrl, const QString &verb);
