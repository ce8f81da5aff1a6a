#include "app/ReferencePages.h"

#include <QDirIterator>
#include <QFile>
#include <QStringList>

namespace {

// A section without its heading.
std::optional<QString> sectionOf(const QString &page, const QString &functionName)
{
    for (const QString &section : page.split(u"\n## "_qs)) {
        const qsizetype end = section.indexOf(u'\n');
        if (section.left(end).compare(functionName, Qt::CaseInsensitive) == 0)
            return section.mid(end + 1);
    }
    return std::nullopt;
}

std::optional<QString> sectionOf(const QString &functionName)
{
    QDirIterator pages(u":/functions"_qs);
    while (pages.hasNext()) {
        QFile page(pages.next());
        page.open(QFile::ReadOnly);
        if (const std::optional<QString> section = sectionOf(QString::fromUtf8(page.readAll()), functionName))
            return section;
    }
    return std::nullopt;
}

QString indented(const QString &paragraph, const QString &indentation)
{
    QString result;
    for (const QString &line : paragraph.split(u'\n', Qt::SkipEmptyParts))
        result += indentation + line.trimmed() + u'\n';
    return result;
}

} // namespace

std::optional<QString> referenceEntry(const QString &functionName)
{
    const std::optional<QString> section = sectionOf(functionName);
    if (!section)
        return std::nullopt;
    const QStringList paragraphs = section->split(u"\n\n"_qs);
    return indented(paragraphs.value(0), QString()) + indented(paragraphs.value(1), u"    "_qs);
}
