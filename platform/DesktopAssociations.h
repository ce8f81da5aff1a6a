#pragma once

#include <QString>

#include <optional>

// The command line, as desktop entries have it (Exec), of the program that the desktop's settings name for the file or
// URL; nothing when there is none. https://specifications.freedesktop.org/desktop-entry-spec
std::optional<QString> desktopCommand(const QString &fileOrUrl);
