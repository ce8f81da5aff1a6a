// Applying functions, evaluating, and errors.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/ErrorObject.h"
#include "host/interpreter/Reader.h"

namespace lisp {

namespace {

Value apply(Machine &machine, Args arguments)
{
    return machine.call(arguments[0], itemsOf(arguments.list(1)));
}

Value eval(Machine &machine, Args arguments)
{
    const Value form = arguments[0];
    if (form.isSymbol())
        return form.asSymbol()->value;
    return form.isCons() ? machine.evaluate(form) : form;
}

[[noreturn]] Value leave(Machine &, Args)
{
    throw LispError(u"quit / exit abort", LispError::Kind::Exit);
}

Value catchAllApply(Machine &machine, Args arguments)
{
    const Machine::CatchScope scope(machine);
    try {
        return machine.call(arguments[0], itemsOf(arguments.list(1)));
    } catch (const LispError &error) {
        return machine.heap().newNative<ErrorObject>(error.message);
    }
}

const ErrorObject *errorObject(Value value)
{
    if (!value.isObject() || value.asObject()->kind != ObjectKind::Native)
        return nullptr;
    return dynamic_cast<const ErrorObject *>(static_cast<const Native *>(value.asObject()));
}

Value isCaughtError(Machine &machine, Args arguments)
{
    return machine.boolean(errorObject(arguments[0]) != nullptr);
}

Value caughtErrorMessage(Machine &machine, Args arguments)
{
    const ErrorObject *error = errorObject(arguments[0]);
    if (!error)
        badArgument(u"vl-catch-all-apply-error-p", arguments[0]);
    return machine.string(error->message);
}

Value printBackTrace(Machine &machine, Args)
{
    machine.write(u"\nBacktrace:\n");
    machine.write(traceText(machine.backTrace()));
    return Value::nil();
}

Value read(Machine &machine, Args arguments)
{
    if (arguments[0].isNil())
        return Value::nil();
    Reader reader(machine.heap(), machine.symbols(), arguments.text(0));
    return reader.read().value_or(Value::nil());
}

// The list that defun-q has left in the symbol: (PARAMETERS EXPRESSION ...).
Value definitionList(Machine &, Args arguments)
{
    const Value definition = arguments.symbol(0)->value;
    return definition.isCons() ? definition : Value::nil();
}

Value setDefinitionList(Machine &, Args arguments)
{
    arguments.cons(1);
    arguments.symbol(0)->value = arguments[1];
    return arguments[0];
}

Value collectGarbage(Machine &machine, Args)
{
    machine.collectGarbage();
    return Value::nil();
}

// The ActiveX half of the language has nothing to load here; programs call it first thing and go on.
Value loadExtensions(Machine &, Args)
{
    return Value::nil();
}

constexpr BuiltinRow rows[] = {
    {"apply", "(apply FUNCTION LIST)", "Calls a function with the items of a list as arguments.", apply},
    {"eval", "(eval EXPRESSION)", "Evaluates the value of the expression once more.", eval},
    {"read", "(read [STRING])", "Gives the first expression of a text.", read},
    {"exit", "(exit)", "Ends the program by the error \"quit / exit abort\".", leave},
    {"quit", "(quit)", "Ends the program by the error \"quit / exit abort\".", leave},
    {"vl-catch-all-apply", "(vl-catch-all-apply FUNCTION [LIST])",
     "Calls a function; an error in it is given back as an error object.", catchAllApply},
    {"vl-catch-all-error-p", "(vl-catch-all-error-p VALUE)", "Gives T for an error object.", isCaughtError},
    {"vl-catch-all-error-message", "(vl-catch-all-error-message ERROR)", "Gives the text of an error object.",
     caughtErrorMessage},
    {"defun-q-list-ref", "(defun-q-list-ref SYMBOL)", "Gives the list of a function that defun-q has defined.",
     definitionList},
    {"defun-q-list-set", "(defun-q-list-set SYMBOL LIST)", "Makes the list the symbol's function; gives the symbol.",
     setDefinitionList},
    {"vl-bt", "(vl-bt)", "Prints the functions that are running.", printBackTrace},
    {"gc", "(gc)", "Frees memory that is no longer used.", collectGarbage},
    {"vl-load-com", "(vl-load-com)", "Accepted for programs that begin with it.", loadExtensions},
};

} // namespace

std::span<const BuiltinRow> functionBuiltins()
{
    return rows;
}

} // namespace lisp
