#pragma once

#include "host/kernel/windows/FileRequest.h"

#include <QString>

#include <optional>

class QWidget;

// How far a program says it has come.
struct Progress
{
    QString label;
    int position = 0;
    int maximum = 0;
};

// The windows of a host. This one has none: it shows nothing, and nobody chooses a file. The windows may be made as
// late as somebody asks for one of them.
class UserInterface
{
public:
    virtual QWidget *mainWindow() { return nullptr; }
    virtual QWidget *documentWindow() { return nullptr; } // of the active document

    // Until the user closes them.
    virtual void showAlert(const QString &) {}
    virtual void showHtml(const QString &) {}
    virtual std::optional<QString> chooseFile(const FileRequest &) { return std::nullopt; }

    // Not called more often than a screen can show.
    virtual void showProgress(const Progress &) {}
    virtual void endProgress() {}

    virtual void callEnded() {} // a module's function has come back

protected:
    ~UserInterface() = default;
};

class NoUserInterface final : public UserInterface
{
};
