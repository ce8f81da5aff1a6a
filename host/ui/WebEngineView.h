#pragma once

#include "sdk/fx/ui/CFxWebView.h"

#include <QPointer>
#include <QWebEngineView>

// A web view on Qt WebEngine: HTML texts, local pages, and pages on the web with all that a browser knows. Only where
// the build's option LISPEXTENSION_WEBENGINE is on.
class WebEngineView final : public CFxWebView
{
public:
    WebEngineView();
    ~WebEngineView() override;

    QWidget *widget() override { return m_view; }
    void openPage(const QString &page) override;
    void loadUrl(const QString &url) override; // also "about:blank", an empty page

private:
    QPointer<QWebEngineView> m_view; // whose parent may delete it first
};

CFxWebView *makeWebEngineView();
