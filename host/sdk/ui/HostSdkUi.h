#pragma once

#include "sdk/fx/ui/FxUiExport.h"

#include <QString>

class CFxWebView;

// How a host, or a test, puts itself behind the windows that sdk/fx/ui declares. Modules never include this.
namespace HostSdk {

using WebViewMaker = CFxWebView *(*)();

// Who makes web views from now on; null, as at start: nobody.
FX_UI_EXPORT void installWebViewMaker(WebViewMaker maker);

FX_UI_EXPORT QString webViewProcessName(); // as it was last set

} // namespace HostSdk
