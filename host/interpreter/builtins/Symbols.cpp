// Symbols, types and what is defined.

#include "host/interpreter/Builtins.h"

namespace lisp {

namespace {

Value set(Machine &, Args arguments)
{
    arguments.symbol(0)->value = arguments[1];
    return arguments[1];
}

std::u16string_view typeName(Value value)
{
    if (value.isInteger())
        return u"INT";
    if (value.isReal())
        return u"REAL";
    if (value.isString())
        return u"STR";
    if (value.isSymbol())
        return u"SYM";
    if (value.isCons())
        return u"LIST";
    switch (value.asObject()->kind) {
    case ObjectKind::Function:
        return u"USUBR";
    case ObjectKind::External:
        return u"EXRXSUBR";
    case ObjectKind::Traced:
        return typeName(static_cast<const Traced *>(value.asObject())->function);
    case ObjectKind::Native:
        return static_cast<const Native *>(value.asObject())->typeName();
    default:
        return u"SUBR";
    }
}

Value type(Machine &machine, Args arguments)
{
    if (arguments[0].isNil())
        return Value::nil();
    return Value::symbol(machine.intern(typeName(arguments[0])));
}

// A symbol whose value is nil counts as unbound, as everywhere in the language.
Value isBound(Machine &machine, Args arguments)
{
    return machine.boolean(arguments[0].isSymbol() && arguments[0].asSymbol()->value.isTrue());
}

Value isSymbolValue(Machine &machine, Args arguments)
{
    return machine.boolean(arguments[0].isSymbol());
}

Value symbolName(Machine &machine, Args arguments)
{
    return machine.string(arguments.symbol(0)->name);
}

Value symbolValue(Machine &, Args arguments)
{
    return arguments.symbol(0)->value;
}

Value namedAtom(Machine &machine, const Symbol &symbol, bool asString)
{
    return asString ? machine.string(symbol.name) : Value::symbol(&symbol);
}

// Format 0 gives symbols, 1 strings. With a list of names: each name that has a value, nil for the others.
Value atomsFamily(Machine &machine, Args arguments)
{
    const bool asStrings = arguments.integer(0) == 1;
    ListBuilder result(machine.heap());
    if (arguments[1].isTrue()) {
        for (const Value name : ListItems(arguments.list(1))) {
            if (!name.isString())
                badArgument(u"stringp", name);
            const Symbol *symbol = machine.symbols().find(name.asString()->view());
            result.add(symbol && symbol->value.isTrue() ? namedAtom(machine, *symbol, asStrings) : Value::nil());
        }
        return result.list();
    }
    for (const Symbol &symbol : machine.symbols().all())
        if (symbol.value.isTrue())
            result.add(namedAtom(machine, symbol, asStrings));
    return result.list();
}

constexpr BuiltinRow rows[] = {
    {"set", "(set SYMBOL VALUE)", "Sets the symbol that SYMBOL evaluates to.", set},
    {"type", "(type VALUE)", "Gives the kind of a value as a symbol, nil for nil.", type},
    {"boundp", "(boundp SYMBOL)", "Gives T if the symbol has a value other than nil.", isBound},
    {"atoms-family", "(atoms-family FORMAT [NAMES])",
     "Lists the symbols that have a value, as symbols (0) or strings (1).", atomsFamily},
    {"vl-symbolp", "(vl-symbolp VALUE)", "Gives T for a symbol.", isSymbolValue},
    {"vl-symbol-name", "(vl-symbol-name SYMBOL)", "Gives the name of a symbol as a string.", symbolName},
    {"vl-symbol-value", "(vl-symbol-value SYMBOL)", "Gives the value of a symbol.", symbolValue},
};

} // namespace

std::span<const BuiltinRow> symbolBuiltins()
{
    return rows;
}

} // namespace lisp
