// Printing: on the command line, or to an open file.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/FileObject.h"
#include "host/interpreter/Printer.h"

namespace lisp {

namespace {

void writeTo(Machine &machine, Args arguments, std::uint32_t fileIndex, std::u16string_view text)
{
    if (arguments[fileIndex].isTrue())
        arguments.native<FileObject>(fileIndex, u"streamp")->write(text);
    else
        machine.write(text);
}

// Without arguments all three print nothing and give the null symbol, whose name is empty: programs end with (princ)
// so that nothing more shows.
Value nullSymbol(Machine &machine)
{
    return Value::symbol(machine.intern(u""));
}

Value princ(Machine &machine, Args arguments)
{
    if (arguments.count() == 0)
        return nullSymbol(machine);
    writeTo(machine, arguments, 1, printed(arguments[0], PrintStyle::Plain));
    return arguments[0];
}

Value prin1(Machine &machine, Args arguments)
{
    if (arguments.count() == 0)
        return nullSymbol(machine);
    writeTo(machine, arguments, 1, printed(arguments[0]));
    return arguments[0];
}

Value print(Machine &machine, Args arguments)
{
    if (arguments.count() == 0) {
        machine.write(u"\n");
        return nullSymbol(machine);
    }
    writeTo(machine, arguments, 1, u"\n" + printed(arguments[0]) + u" ");
    return arguments[0];
}

Value prompt(Machine &machine, Args arguments)
{
    machine.write(arguments.text(0));
    return Value::nil();
}

Value terpri(Machine &machine, Args)
{
    machine.write(u"\n");
    return Value::nil();
}

constexpr BuiltinRow rows[] = {
    {"princ", "(princ [VALUE [FILE]])", "Prints a value as plain text; gives the value.", princ},
    {"prin1", "(prin1 [VALUE [FILE]])", "Prints a value so that it can be read again; gives the value.", prin1},
    {"print", "(print [VALUE [FILE]])", "Prints a newline, the value as prin1 does, and a blank; gives the value.",
     print},
    {"prompt", "(prompt TEXT)", "Prints a text on the command line; gives nil.", prompt},
    {"terpri", "(terpri)", "Prints a newline on the command line.", terpri},
};

} // namespace

std::span<const BuiltinRow> outputBuiltins()
{
    return rows;
}

} // namespace lisp
