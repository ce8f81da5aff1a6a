#pragma once

#include "sdk/fx/ui/CFxWebView.h"

#include <QPointer>
#include <QTextBrowser>

// A web view on Qt's own text browser: HTML texts and local pages with their links and images. Links to the web open in
// the desktop's browser. The page of an address on the web is only a link to it: nothing is fetched.
class TextBrowserView final : public CFxWebView
{
public:
    TextBrowserView();
    ~TextBrowserView() override;

    QWidget *widget() override { return m_browser; }
    void openPage(const QString &page) override;
    void loadUrl(const QString &url) override; // also "about:blank", an empty page

private:
    QPointer<QTextBrowser> m_browser; // whose parent may delete it first
};

CFxWebView *makeTextBrowserView();

// The page that a browser of such a view was last given, as it was given; null when it is none of theirs.
QString givenPage(const QTextBrowser &browser);
