#include "host/ui/HeadlessInterface.h"

#include "host/kernel/HostServices.h"
#include "host/sdk/ui/HostSdkUi.h"
#include "host/ui/DialogDriver.h"
#include "host/ui/FileChooser.h"
#include "host/ui/HtmlDialog.h"
#include "host/ui/TextBrowserView.h"

#include <QApplication>

#include <array>

namespace {

// Qt keeps the addresses. The style is named so that no setting of the environment changes what runs look like.
int argumentCount = 5;
char program[] = "lisphost";
char platformOption[] = "-platform";
char platform[] = "offscreen";
char styleOption[] = "-style";
char style[] = "fusion";
std::array<char *, 6> arguments = {program, platformOption, platform, styleOption, style, nullptr};

} // namespace

HeadlessInterface::HeadlessInterface(HostServices &services) : m_services(services)
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
    if (m_application)
        return;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setDesktopSettingsAware(false);
    m_application = std::make_unique<QApplication>(argumentCount, arguments.data());
    m_application->setQuitOnLastWindowClosed(false);
    m_driver = std::make_unique<DialogDriver>(m_services);
    m_mainWindow = std::make_unique<QWidget>();
    m_mainWindow->setObjectName(QStringLiteral("mainWindow"));
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
    if (m_driver)
        m_driver->noteWindows();
}
