// Results as XML that other programs can read, whatever a test has printed.

#include "host/lisptest/JUnitFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using lisptest::TestResult;
using lisptest::writeJUnitFile;

namespace {

struct JUnitFile : testing::Test
{
    // The text of the one element of this name, after the whole file was read as XML.
    QString textOf(const QString &element, const std::vector<TestResult> &results)
    {
        QString failure;
        EXPECT_TRUE(writeJUnitFile(path, results, failure)) << failure.toStdString();
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QString text = QStringLiteral("(no such element)");
        while (!xml.atEnd())
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == element)
                text = xml.readElementText();
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        return text;
    }

    TestResult printing(const QString &output)
    {
        TestResult result;
        result.output = output;
        return result;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("results.xml"));
};

TEST_F(JUnitFile, HoldsAnyText)
{
    const QString text = QStringLiteral("<a> & \"b\" ]]> \t€ \U0001F600\nend");
    EXPECT_EQ(textOf(QStringLiteral("system-out"), {printing(text)}), text);
}

TEST_F(JUnitFile, ReplacesWhatXmlCannotHold)
{
    const QString lone = QStringLiteral("a") + QChar(0xd800) + QStringLiteral("b") + QChar(0xdc00) + QChar(0xfffe) +
                         QChar(0) + QChar(27) + QStringLiteral("c") + QChar(0xd800);
    EXPECT_EQ(textOf(QStringLiteral("system-out"), {printing(lone)}), QStringLiteral("a�b����c�"));
}

TEST_F(JUnitFile, IsWellFormedWithoutResults)
{
    EXPECT_EQ(textOf(QStringLiteral("testsuites"), {}), QString());
}

TEST_F(JUnitFile, SaysWhyItCannotBeWritten)
{
    QString failure;
    EXPECT_FALSE(writeJUnitFile(folder.filePath(QStringLiteral("missing/r.xml")), {}, failure));
    EXPECT_TRUE(failure.contains(QStringLiteral("missing/r.xml"))) << failure.toStdString();
}

} // namespace
