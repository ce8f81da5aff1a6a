// The environment, the host's modules, and other source files.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/FileSearch.h"
#include "host/interpreter/ModuleService.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/interpreter/text/QtText.h"

#include <QString>
#include <QtGlobal>

namespace lisp {

namespace {

Value getEnvironment(Machine &machine, Args arguments)
{
    const QByteArray name = toQString(arguments.text(0)).toLocal8Bit();
    if (!qEnvironmentVariableIsSet(name.constData()))
        return Value::nil();
    return machine.string(qEnvironmentVariable(name.constData()).toStdU16String());
}

Value setEnvironment(Machine &, Args arguments)
{
    const QByteArray name = toQString(arguments.text(0)).toLocal8Bit();
    const QByteArray value = toQString(arguments.text(1)).toLocal8Bit();
    if (name.contains('=') || !qputenv(name.constData(), value)) // Windows would set the variable a for "a=b"
        fail(u"cannot set the environment variable " + printed(arguments[0]));
    return arguments[1];
}

Value version(Machine &machine, Args)
{
    return machine.string(u"AutoLISP lisphost");
}

Value listModules(Machine &machine, Args)
{
    ListBuilder names(machine.heap());
    if (const ModuleService *modules = machine.moduleService())
        for (const std::u16string &name : modules->loadedModules())
            names.add(machine.string(name));
    return names.list();
}

// A file that cannot be loaded is an error, or gives the value that the caller named for this case.
Value loadFailure(Args arguments, std::u16string_view function)
{
    if (arguments.has(1))
        return arguments[1];
    fail(std::u16string(function) + u" failed: " + printed(arguments[0]));
}

Value loadModule(Machine &machine, Args arguments)
{
    const std::optional<std::u16string> path = findFile(arguments.text(0), machine.searchFolders());
    if (!path || !machine.moduleService() || !machine.moduleService()->loadModule(*path))
        return loadFailure(arguments, u"ARXLOAD");
    return arguments[0];
}

// The name as it stands, else with the extension of source files.
std::optional<std::u16string> findSource(Machine &machine, std::u16string_view name)
{
    if (const auto path = findFile(name, machine.searchFolders()))
        return path;
    return findFile(std::u16string(name) + u".lsp", machine.searchFolders());
}

Value load(Machine &machine, Args arguments)
{
    const std::optional<std::u16string> path = findSource(machine, arguments.text(0));
    QString failure;
    const std::optional<std::u16string> source =
        path ? readSourceFile(QString::fromStdU16String(*path), failure) : std::nullopt;
    return source ? machine.load(*source, *path) : loadFailure(arguments, u"LOAD");
}

// There is one window at most, so there is nothing to switch to; programs call these and go on.
Value switchScreen(Machine &, Args)
{
    return Value::nil();
}

constexpr BuiltinRow rows[] = {
    {"getenv", "(getenv NAME)", "Gives the value of an environment variable, or nil.", getEnvironment},
    {"setenv", "(setenv NAME VALUE)", "Sets an environment variable; gives the value.", setEnvironment},
    {"ver", "(ver)", "Gives the name of the interpreter.", version},
    {"load", "(load FILE [ONFAILURE])", "Evaluates a source file; gives its last value.", load},
    {"arx", "(arx)", "Lists the modules that are loaded.", listModules},
    {"arxload", "(arxload FILE [ONFAILURE])", "Loads a module.", loadModule},
    {"textscr", "(textscr)", "Shows the text window where there is one.", switchScreen},
    {"graphscr", "(graphscr)", "Shows the drawing window where there is one.", switchScreen},
    {"textpage", "(textpage)", "Shows the text window where there is one.", switchScreen},
};

} // namespace

std::span<const BuiltinRow> systemBuiltins()
{
    return rows;
}

} // namespace lisp
