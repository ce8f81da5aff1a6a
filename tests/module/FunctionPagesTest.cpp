#include "module/FunctionTable.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

// Every function has its page and its test, found by the same words.

namespace {

// The content of all files with such names below a folder of the sources, one behind the other.
QString contents(const QString &folder, const QString &names)
{
    QString result;
    QDirIterator files(QStringLiteral(SOURCE_FOLDER "/") + folder, {names}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        result += QString::fromUtf8(file.readAll());
    }
    return result;
}

// The handler of "vl_catch_all_error_p" is vlCatchAllErrorP.
QString handlerName(const QString &lispName)
{
    QString result;
    bool beginsWord = false;
    for (const QChar character : lispName) {
        const bool separates = character == u'-' || character == u'_';
        if (!separates)
            result += beginsWord ? character.toUpper() : character;
        beginsWord = separates && !result.isEmpty();
    }
    return result;
}

} // namespace

TEST(FunctionPages, EveryFunctionHasOneAndATest)
{
    const QString pages = contents(u"docs/functions"_qs, u"*.md"_qs);
    const QString tests = contents(u"tests/functions"_qs, u"*Test.cpp"_qs);
    for (const FunctionRow &row : functionTable()) {
        const QString name = QString::fromLatin1(row.name);
        EXPECT_TRUE(pages.contains(u"\n## "_qs + name + u'\n')) << "no page: " << row.name;
        EXPECT_TRUE(tests.contains(u'(' + handlerName(name) + u',')) << "no test: " << row.name;
    }
}
