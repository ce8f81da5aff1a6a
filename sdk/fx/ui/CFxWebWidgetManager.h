#pragma once

#include "sdk/fx/ui/FxUiExport.h"

class CFxWebView;

// The host's one maker of web views.
class FX_UI_EXPORT CFxWebWidgetManager
{
public:
    static CFxWebWidgetManager *GetManager(); // never null

    CFxWebView *CreateView(); // belongs to the caller; null when the host shows no web pages
};
