#pragma once

#include <QString>
#include <QUrl>

// What a page that a program wants shown is: the address of a file or of something on the web, or the page's own text.
struct PageSource
{
    enum class Kind { File, Web, Html };

    // An address with a scheme, the path of an existing file, else the text itself.
    static PageSource of(const QString &page);

    Kind kind = Kind::Html;
    QUrl url;     // of a file or on the web
    QString html; // the text, or what is shown instead of a page that this host cannot fetch
};
