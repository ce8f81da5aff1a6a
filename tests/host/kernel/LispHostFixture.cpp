#include "tests/host/kernel/LispHostFixture.h"

#include "host/interpreter/Printer.h"

#include <QString>

std::function<int()> LispHostTest::body;

LispHostTest::LispHostTest()
{
    m_machine.setConsole(this);
    m_host.defun(u"test", [] { return body(); });
}

std::string LispHostTest::evaluate(const std::string &source)
{
    try {
        return utf8(lisp::printed(m_machine.load(QString::fromStdString(source).toStdU16String(), u"")));
    } catch (const lisp::LispError &error) {
        return "error: " + utf8(error.message);
    }
}

std::string LispHostTest::printedText() const
{
    return utf8(m_printed);
}

std::string utf8(std::u16string_view text)
{
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString().toStdString();
}
