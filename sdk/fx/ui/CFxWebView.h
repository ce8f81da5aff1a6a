#pragma once

#include "sdk/fx/ui/FxUiExport.h"

class QString;
class QWidget;

// A view of web pages, made by CFxWebWidgetManager. The order of the operations is the host's virtual table. Whoever
// had the view made deletes it.
class CFxWebView
{
public:
    virtual ~CFxWebView() = default;

    virtual QWidget *widget() = 0;                  // may be null
    virtual void openPage(const QString &page) = 0; // what a page is, a path, an address or HTML, is the host's affair
    virtual void loadUrl(const QString &url) = 0;
};

class FX_UI_EXPORT CFxWebView_private
{
public:
    // How the process that draws the views made from now on is called.
    static void setProcessName(const QString &name);
};
