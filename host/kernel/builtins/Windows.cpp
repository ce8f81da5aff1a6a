// Requests that open a window.

#include "host/interpreter/text/QtText.h"
#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/RunningCall.h"
#include "host/kernel/builtins/HostBuiltins.h"

#include <QDir>

using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

UserInterface &userInterface(Machine &machine)
{
    return *Document::of(machine).services().userInterface;
}

Value alert(Machine &machine, Args arguments)
{
    userInterface(machine).showAlert(lisp::toQString(arguments.text(0)));
    return Value::nil();
}

Value getFileD(Machine &machine, Args arguments)
{
    const RunningCall running;
    const FileRequest request =
        FileRequest::fromGetfiled(lisp::toQString(arguments.text(0)), lisp::toQString(arguments.text(1)),
                                  lisp::toQString(arguments.text(2)), arguments.integer(3));
    const std::optional<QString> path = userInterface(machine).chooseFile(request);
    return path ? machine.string(QDir::toNativeSeparators(*path).toStdU16String()) : Value::nil();
}

constexpr lisp::BuiltinRow rows[] = {
    {"alert", "(alert TEXT)", "Shows a text in a box until the user presses OK.", alert},
    {"getfiled", "(getfiled TITLE DEFAULT EXTENSION FLAGS)",
     "Asks for a file: flags 1 a new one, 4 any extension, 16 DEFAULT is a folder, 32 overwrites unasked.", getFileD},
};

} // namespace

std::span<const lisp::BuiltinRow> windowBuiltins()
{
    return rows;
}
