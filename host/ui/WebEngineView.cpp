#include "host/ui/WebEngineView.h"

#include "host/ui/PageSource.h"

WebEngineView::WebEngineView() : m_view(new QWebEngineView) {}

WebEngineView::~WebEngineView()
{
    delete m_view;
}

void WebEngineView::openPage(const QString &page)
{
    const PageSource source = PageSource::of(page);
    if (source.kind != PageSource::Kind::Html)
        loadUrl(source.url.toString());
    else if (m_view)
        m_view->setHtml(source.html);
}

void WebEngineView::loadUrl(const QString &url)
{
    if (m_view)
        m_view->load(QUrl(url));
}

CFxWebView *makeWebEngineView()
{
    return new WebEngineView;
}
