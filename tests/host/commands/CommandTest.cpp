#include "tests/host/commands/CommandTest.h"

#include "host/drawing/Blocks.h"
#include "host/interpreter/Printer.h"

#include <QFile>
#include <QString>

CommandTest::CommandTest() : m_document(m_services)
{
    m_services.print = [this](std::u16string_view text) { m_printed += text; };
    m_document.machine().setConsole(this);
    evaluate("(setvar \"CMDECHO\" 0)");
}

std::string CommandTest::evaluate(const std::string &source)
{
    const auto utf8 = [](const std::u16string &text) { return QString::fromStdU16String(text).toStdString(); };
    try {
        return utf8(lisp::printed(m_document.machine().load(QString::fromStdString(source).toStdU16String(), u"")));
    } catch (const lisp::LispError &error) {
        return "error: " + utf8(error.message);
    }
}

void CommandTest::openEmptyDrawing(const std::string &version)
{
    const QString path = m_drawings.filePath(QStringLiteral("empty.dxf"));
    QFile file(path);
    const std::string text = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\n" + version +
                             "\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(QByteArray::fromStdString(text)) > 0);
    file.close();
    m_document.open(path);
}

std::string CommandTest::takePrinted()
{
    return QString::fromStdU16String(std::exchange(m_printed, {})).toStdString();
}

drawing::RecordId CommandTest::add(const drawing::GroupList &groups)
{
    const drawing::RecordId section = drawing::ensureEntities(database());
    return database().add(drawing::RecordKind::Entity, groups, database().endOf(section));
}

drawing::RecordId CommandTest::last()
{
    return drawing::lastEntity(database());
}

drawing::GroupList CommandTest::lastGroups()
{
    return database().groups(last());
}

std::vector<std::string> CommandTest::types()
{
    std::vector<std::string> types;
    const drawing::RecordId section = drawing::ensureEntities(database());
    for (auto id = database().firstIn(section); id != drawing::NoRecord; id = database().nextIn(id))
        if (!database().record(id).isGone() && !database().isPart(id))
            types.push_back(QString::fromStdU16String(database().type(id)).toStdString());
    return types;
}
