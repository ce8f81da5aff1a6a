// Commands of the command line, sent by programs.

#include "host/kernel/Document.h"
#include "host/kernel/RunningCall.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/commands/LispAnswers.h"

using commands::CommandLine;
using commands::Input;
using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

// Nil, and no argument at all, are Esc.
CommandLine::Result run(Machine &machine, Args arguments)
{
    const RunningCall running;
    Document &document = Document::of(machine);
    CommandLine &line = document.commandLine();
    std::vector<Input> inputs;
    for (const Value argument : arguments) {
        if (argument.isTrue()) {
            inputs.push_back(answerOf(document, argument));
            continue;
        }
        line.give(std::exchange(inputs, {}));
        line.cancel();
    }
    if (arguments.count() == 0)
        line.cancel();
    const CommandLine::Result result = line.give(inputs);
    if (result == CommandLine::Result::Cancelled)
        lisp::fail(u"Function cancelled");
    machine.raiseInterrupt(); // a command was stopped that takes long
    return result;
}

Value command(Machine &machine, Args arguments)
{
    run(machine, arguments);
    return Value::nil();
}

Value commandOrNil(Machine &machine, Args arguments)
{
    return machine.boolean(run(machine, arguments) == CommandLine::Result::Taken);
}

// For one whole command: nobody is asked, and nothing is left to later calls.
Value wholeCommand(Machine &machine, Args arguments)
{
    CommandLine &line = Document::of(machine).commandLine();
    for (const Value argument : arguments)
        if (argument.isString() && argument.asString()->view() == CommandLine::Pause)
            lisp::fail(u"invalid argument for command-s: pause");
    const bool isTaken = run(machine, arguments) == CommandLine::Result::Taken;
    line.endRepeated();
    if (line.isActive()) {
        line.cancel();
        lisp::fail(u"command-s: the command needs more input");
    }
    if (!isTaken)
        lisp::fail(u"command-s: unknown command");
    return Value::nil();
}

constexpr lisp::BuiltinRow rows[] = {
    {"command", "(command [ANSWER ...])",
     "Runs a command with answers to its prompts, or gives a running one more; nothing, or nil, is Esc.", command},
    {"vl-cmdf", "(vl-cmdf [ANSWER ...])", "Does as command does; gives T, nil when there is no such command.",
     commandOrNil},
    {"command-s", "(command-s COMMAND [ANSWER ...])", "Runs one whole command; PAUSE is not allowed.", wholeCommand},
};

} // namespace

std::span<const lisp::BuiltinRow> commandBuiltins()
{
    return rows;
}
