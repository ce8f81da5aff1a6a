#include "host/sdk/ui/HostSdkUi.h"

#include "sdk/fx/ui/CFxWebView.h"
#include "sdk/fx/ui/CFxWebWidgetManager.h"

namespace {

HostSdk::WebViewMaker installedMaker = nullptr;

QString &processName()
{
    static QString name;
    return name;
}

} // namespace

namespace HostSdk {

void installWebViewMaker(WebViewMaker maker)
{
    installedMaker = maker;
}

QString webViewProcessName()
{
    return processName();
}

} // namespace HostSdk

void CFxWebView_private::setProcessName(const QString &name)
{
    processName() = name;
}

CFxWebWidgetManager *CFxWebWidgetManager::GetManager()
{
    static CFxWebWidgetManager manager;
    return &manager;
}

CFxWebView *CFxWebWidgetManager::CreateView()
{
    return installedMaker != nullptr ? installedMaker() : nullptr;
}
