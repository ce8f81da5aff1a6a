#pragma once

#include "host/kernel/windows/FileRequest.h"

#include <optional>

class QWidget;

// Asks for a file. Nothing when the user cancels; else the path in Qt's form.
std::optional<QString> chooseFileInDialog(QWidget *parent, const FileRequest &request);
