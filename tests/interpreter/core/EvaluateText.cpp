#include "tests/interpreter/core/EvaluateText.h"

#include "host/interpreter/Printer.h"

#include <QString>

std::u16string wide(const std::string &utf8)
{
    return QString::fromStdString(utf8).toStdU16String();
}

std::string narrow(std::u16string_view text)
{
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString().toStdString();
}

std::string CollectingConsole::text() const
{
    return narrow(m_text);
}

std::string evaluateText(lisp::Machine &machine, const std::string &source)
{
    try {
        return narrow(lisp::printed(machine.load(wide(source), u"")));
    } catch (const lisp::LispError &error) {
        return "error: " + narrow(error.message);
    }
}

std::string evaluateText(const std::string &source)
{
    lisp::Machine machine;
    return evaluateText(machine, source);
}

void expectAll(const std::vector<Example> &examples)
{
    for (const Example &example : examples)
        EXPECT_EQ(evaluateText(example.source), example.expected) << example.source;
}
