#include "host/ui/TextBrowserView.h"

#include "host/ui/PageSource.h"

#include <QFile>

namespace {

constexpr char PageProperty[] = "page";

} // namespace

TextBrowserView::TextBrowserView() : m_browser(new QTextBrowser)
{
    m_browser->setOpenExternalLinks(true);
}

TextBrowserView::~TextBrowserView()
{
    delete m_browser;
}

void TextBrowserView::openPage(const QString &page)
{
    if (!m_browser)
        return;
    m_browser->setProperty(PageProperty, page);
    const PageSource source = PageSource::of(page);
    if (source.kind != PageSource::Kind::File)
        m_browser->setHtml(source.html);
    else if (!QFile::exists(source.url.toLocalFile()))
        m_browser->setPlainText(QStringLiteral("There is no file %1.").arg(source.url.toLocalFile()));
    else if (m_browser->source() == source.url) // setSource() would leave the page as it was read before
        m_browser->reload();
    else
        m_browser->setSource(source.url);
}

void TextBrowserView::loadUrl(const QString &url)
{
    if (url == u"about:blank" && m_browser)
        m_browser->clear();
    else
        openPage(url);
}

CFxWebView *makeTextBrowserView()
{
    return new TextBrowserView;
}

QString givenPage(const QTextBrowser &browser)
{
    return browser.property(PageProperty).toString();
}
