#include "host/ui/HeadlessInterface.h"

#include "host/kernel/HostServices.h"
#include "host/sdk/ui/HostSdkUi.h"
#include "host/ui/AlertBox.h"
#include "host/ui/DialogDriver.h"
#include "host/ui/FileChooser.h"
#include "host/ui/HtmlDialog.h"
#include "host/ui/SpawnedProcesses.h"
#include "host/ui/SystemBoxes.h"
#include "host/ui/TextBrowserView.h"

#include <QApplication>

#include <array>
#include <clocale>

namespace {

// Qt keeps the addresses.
char program[] = "lisphost";
int plainArgumentCount = 1;
std::array<char *, 2> plainArguments = {program, nullptr};

// The style is named so that no setting of the environment changes what runs look like.
int argumentCount = 0;
char platformOption[] = "-platform";
char platform[] = "offscreen";
char styleOption[] = "-style";
char style[] = "fusion";
std::array<char *, 6> arguments;

// An application takes the user's locale for the whole process. Numbers in files and in LISP have a point all the same.
template <class Application> std::unique_ptr<Application> makeApplication(int &count, char **texts)
{
    auto application = std::make_unique<Application>(count, texts);
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

} // namespace

HeadlessInterface::HeadlessInterface(HostServices &services)
    : m_services(services), m_application(makeApplication<QCoreApplication>(plainArgumentCount, plainArguments.data())),
      m_systemBoxes(driveSystemBoxes(services))
{
    services.userInterface = this;
    HostSdk::installWebViewMaker(makeTextBrowserView);
}

HeadlessInterface::~HeadlessInterface()
{
    HostSdk::installWebViewMaker(nullptr);
    m_services.userInterface = &m_services.noWindows;
}

void HeadlessInterface::start()
{
    if (m_driver)
        return;
    m_application.reset(); // there is one at a time
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setDesktopSettingsAware(false);
    QApplication::setQuitOnLastWindowClosed(false);
    arguments = {program, platformOption, platform, styleOption, style, nullptr}; // Qt takes out what it understands
    argumentCount = 5;
    m_application = makeApplication<QApplication>(argumentCount, arguments.data());
    m_driver = std::make_unique<DialogDriver>(m_services);
    makeMainWindow();
}

void HeadlessInterface::makeMainWindow()
{
    m_mainWindow = std::make_unique<QWidget>();
    m_mainWindow->setObjectName(QStringLiteral("mainWindow"));
}

// They belong to the main window and go with it.
void HeadlessInterface::closeWindows()
{
    if (m_mainWindow)
        makeMainWindow();
}

// Never shown: nobody is there to see it. It is the parent of the modules' dialogs.
QWidget *HeadlessInterface::mainWindow()
{
    start();
    return m_mainWindow.get();
}

QWidget *HeadlessInterface::documentWindow()
{
    return mainWindow();
}

void HeadlessInterface::showAlert(const QString &text)
{
    showAlertBox(mainWindow(), text);
}

void HeadlessInterface::showHtml(const QString &text)
{
    showHtmlDialog(mainWindow(), text);
}

std::optional<QString> HeadlessInterface::chooseFile(const FileRequest &request)
{
    return chooseFileInDialog(mainWindow(), request);
}

void HeadlessInterface::callEnded()
{
    if (!m_driver)
        return;
    m_driver->noteWindows();
    freeEndedProcesses(*m_mainWindow);
}
