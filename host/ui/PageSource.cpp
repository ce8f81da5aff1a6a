#include "host/ui/PageSource.h"

#include <QFileInfo>
#include <QTextDocument>

namespace {

QString asHtml(const QString &text)
{
    return Qt::mightBeRichText(text) ? text : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace

PageSource PageSource::of(const QString &page)
{
    const QUrl url(page.trimmed(), QUrl::StrictMode);
    if (url.isValid() && url.isLocalFile())
        return {Kind::File, url, {}};
    if (url.isValid() && (url.scheme() == u"http" || url.scheme() == u"https")) {
        const QString address = url.toString().toHtmlEscaped();
        return {Kind::Web, url, QStringLiteral("<p><a href=\"%1\">%1</a></p>").arg(address)};
    }
    if (const QFileInfo file(page); file.isFile())
        return {Kind::File, QUrl::fromLocalFile(file.absoluteFilePath()), {}};
    return {Kind::Html, {}, asHtml(page)};
}
