// Random small programs over the built-ins that touch nothing outside the machine: each ends with a value or a LISP
// error, within bounds of steps and memory. The input bytes choose how a program grows, so nearly all are well formed.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Printer.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace {

class ProgramWriter
{
public:
    ProgramWriter(const std::uint8_t *data, std::size_t size, const std::vector<std::u16string> &functions)
        : m_data(data), m_end(data + size), m_functions(functions)
    {
    }

    bool atEnd() const { return m_data == m_end; }
    void writeExpression(std::u16string &text, int depth)
    {
        switch (next() % (depth > 0 ? 12 : 5)) {
        case 0:
            text += QString::number(static_cast<int>(next()) - 100).toStdU16String();
            break;
        case 1:
            text += variable();
            break;
        case 2:
            text += choose(
                {u"\"\"", u"\"abc\"", u"\"1.5e3\"", u"\"a,b*[~c]\"", u"0.5", u"-1e300", u"2147483647", u"nil", u"T"});
            break;
        case 3:
            text += choose({u"'(1 2 3)", u"'(\"b\" \"a\")", u"'((1 . 2) (3 . 4))", u"'(1 . 2)", u"'a",
                            u"'(lambda (x) (list x y))"});
            break;
        case 4:
            text += choose({u"'car", u"'<", u"'+", u"'f", u"(function f)"});
            break;
        case 5:
            writeBody(text += u"(setq " + variable() + u" ", depth, 1);
            break;
        case 6:
            writeBody(text += choose({u"(if ", u"(while ", u"(repeat ", u"(and ", u"(or ", u"(progn "}), depth,
                      1 + next() % 3);
            break;
        case 7:
            writeBody(text += u"(foreach " + variable() + u" ", depth, 2);
            break;
        case 8:
            writeBody(text += u"(defun f (x / y) ", depth, 1 + next() % 2);
            break;
        case 9:
            writeBody(text += u"(f ", depth, 1);
            break;
        default:
            writeBody(text += u"(" + m_functions[(next() + 256u * next()) % m_functions.size()] + u" ", depth,
                      next() % 4);
        }
    }

private:
    std::uint8_t next() { return atEnd() ? std::uint8_t(0) : *m_data++; }
    std::u16string choose(const std::vector<std::u16string> &texts) { return texts[next() % texts.size()]; }
    std::u16string variable() { return choose({u"x", u"y", u"z"}); }
    void writeBody(std::u16string &text, int depth, int count)
    {
        for (; count > 0; --count) {
            writeExpression(text, depth - 1);
            text += u' ';
        }
        text += u')';
    }

    const std::uint8_t *m_data;
    const std::uint8_t *m_end;
    const std::vector<std::u16string> &m_functions;
};

std::vector<std::u16string> harmlessFunctions()
{
    std::vector<std::u16string> names;
    for (const auto family :
         {lisp::listBuiltins(), lisp::numberBuiltins(), lisp::comparisonBuiltins(), lisp::geometryBuiltins(),
          lisp::functionBuiltins(), lisp::sequenceBuiltins(), lisp::symbolBuiltins(), lisp::outputBuiltins(),
          lisp::stringBuiltins(), lisp::conversionBuiltins()})
        for (const lisp::BuiltinRow &row : family)
            names.emplace_back(row.name, row.name + std::char_traits<char>::length(row.name));
    return names;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::vector<std::u16string> functions = harmlessFunctions();
    lisp::Machine machine({.stackValues = 65536, .frames = 8192});
    machine.setStepLimit(20000);
    machine.heap().setLimit(256 * 1024 * 1024);
    ProgramWriter writer(data, size, functions);
    while (!writer.atEnd()) {
        std::u16string program;
        writer.writeExpression(program, 6);
        try {
            lisp::printed(machine.load(program, u""));
        } catch (const lisp::LispError &) {
        }
    }
    machine.collectGarbage();
    return 0;
}
