#pragma once

#include "host/kernel/windows/UserInterface.h"
#include "host/ui/DocumentOpener.h"

#include <memory>

class QCoreApplication;
class DialogDriver;
class SystemBoxDriver;
struct HostServices;

// Windows for runs without a person: real ones, on a screen that only exists in memory, driven by the answers file.
// They are made when somebody first asks for one, because that takes longer than most programs; until then there is an
// application without them, which knows where the program stands.
//
// It is the host's user interface as long as it lives, and ends before the host: the code of the modules' dialogs must
// still be there.
class HeadlessInterface final : public UserInterface
{
public:
    explicit HeadlessInterface(HostServices &services);
    ~HeadlessInterface();
    HeadlessInterface(const HeadlessInterface &) = delete;
    HeadlessInterface &operator=(const HeadlessInterface &) = delete;

    QWidget *mainWindow() override;
    QWidget *documentWindow() override;
    void showAlert(const QString &text) override;
    void showHtml(const QString &text) override;
    std::optional<QString> chooseFile(const FileRequest &request) override;
    void callEnded() override;
    void closeWindows(); // those that programs have left open, too

private:
    void start();
    void makeMainWindow();

    HostServices &m_services;
    std::unique_ptr<QCoreApplication> m_application; // a QApplication as soon as a window is asked for
    DocumentOpener m_documentOpener;
    std::unique_ptr<SystemBoxDriver> m_systemBoxes;
    std::unique_ptr<DialogDriver> m_driver;
    std::unique_ptr<QWidget> m_mainWindow;
};
