// car and its compositions, cons, list, append, assoc, …

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Compiler.h"
#include "host/interpreter/Equality.h"

namespace lisp {

namespace {

// Walks c[ad]+r: `path` holds the letters from right to left.
template <char... Path> Value compose(Machine &, Args arguments)
{
    Value value = arguments[0];
    for (const char step : {Path...}) {
        if (value.isNil())
            return value;
        if (!value.isCons())
            badArgument(u"listp", value);
        value = step == 'a' ? value.asCons()->car : value.asCons()->cdr;
    }
    return value;
}

Value cons(Machine &machine, Args arguments)
{
    return machine.heap().cons(arguments[0], arguments[1]);
}

Value listStar(Machine &machine, Args arguments)
{
    Value result = arguments[arguments.count() - 1];
    for (std::uint32_t i = arguments.count() - 1; i-- > 0;)
        result = machine.heap().cons(arguments[i], result);
    return result;
}

Value list(Machine &machine, Args arguments)
{
    Value result;
    for (std::uint32_t i = arguments.count(); i-- > 0;)
        result = machine.heap().cons(arguments[i], result);
    return result;
}

Value append(Machine &machine, Args arguments)
{
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        arguments.list(i);
    ListBuilder result(machine.heap());
    for (std::uint32_t i = 0; i + 1 < arguments.count(); ++i)
        for (const Value item : ListItems(arguments[i]))
            result.add(item);
    if (arguments.count() > 0)
        result.end(arguments[arguments.count() - 1]);
    return result.list();
}

Value assoc(Machine &machine, Args arguments)
{
    const EqualTo isKey(machine, arguments[0]);
    for (const Value entry : ListItems(arguments.list(1)))
        if (entry.isCons() && isKey(entry.asCons()->car))
            return entry;
    return Value::nil();
}

Value member(Machine &machine, Args arguments)
{
    const EqualTo isSought(machine, arguments[0]);
    for (Value rest = arguments.list(1); rest.isCons(); rest = rest.asCons()->cdr)
        if (isSought(rest.asCons()->car))
            return rest;
    return Value::nil();
}

Value length(Machine &, Args arguments)
{
    const std::int64_t count = listLength(arguments.list(0));
    if (count < 0)
        badArgument(u"proper list", arguments[0]);
    return Value::integer(static_cast<std::int32_t>(count));
}

// Like length, but nil for an improper list.
Value listLengthOrNil(Machine &, Args arguments)
{
    const std::int64_t count = arguments[0].isList() ? listLength(arguments[0]) : -1;
    return count < 0 ? Value::nil() : Value::integer(static_cast<std::int32_t>(count));
}

Value nth(Machine &, Args arguments)
{
    std::int32_t index = arguments.integer(0);
    Value rest = arguments.list(1);
    if (index < 0)
        badArgument(u"fixnump:", arguments[0]);
    for (; index > 0 && rest.isCons(); --index)
        rest = rest.asCons()->cdr;
    return rest.isCons() ? rest.asCons()->car : Value::nil();
}

Value last(Machine &, Args arguments)
{
    Value rest = arguments.list(0);
    if (rest.isNil())
        return rest;
    while (rest.asCons()->cdr.isCons())
        rest = rest.asCons()->cdr;
    return rest.asCons()->car;
}

Value reverse(Machine &machine, Args arguments)
{
    Value result;
    for (const Value item : ListItems(arguments.list(0)))
        result = machine.heap().cons(item, result);
    return result;
}

Value subst(Machine &machine, Args arguments)
{
    const EqualTo isOld(machine, arguments[1]);
    ListBuilder result(machine.heap());
    Value rest = arguments.list(2);
    for (; rest.isCons(); rest = rest.asCons()->cdr) {
        const Value item = rest.asCons()->car;
        result.add(isOld(item) ? arguments[0] : item);
    }
    result.end(rest);
    return result.list();
}

Value remove(Machine &machine, Args arguments)
{
    const EqualTo isUnwanted(machine, arguments[0]);
    ListBuilder result(machine.heap());
    for (const Value item : ListItems(arguments.list(1)))
        if (!isUnwanted(item))
            result.add(item);
    return result.list();
}

Value position(Machine &machine, Args arguments)
{
    const EqualTo isSought(machine, arguments[0]);
    std::int32_t index = 0;
    for (const Value item : ListItems(arguments.list(1))) {
        if (isSought(item))
            return Value::integer(index);
        ++index;
    }
    return Value::nil();
}

Value isListValue(Machine &machine, Args arguments)
{
    return machine.boolean(arguments[0].isList());
}

Value isConsValue(Machine &machine, Args arguments)
{
    return machine.boolean(arguments[0].isCons());
}

Value isAtom(Machine &machine, Args arguments)
{
    return machine.boolean(!arguments[0].isCons());
}

Value isNil(Machine &machine, Args arguments)
{
    return machine.boolean(arguments[0].isNil());
}

#define COMPOSITION(name, ...)                                                                                         \
    {                                                                                                                  \
        name, "(" name " LIST)", "Composition of car (a) and cdr (d), applied from right to left.",                    \
            compose<__VA_ARGS__>                                                                                       \
    }

constexpr BuiltinRow rows[] = {
    {"car", "(car LIST)", "Gives the first item of a list.", compose<'a'>},
    {"cdr", "(cdr LIST)", "Gives the list without its first item.", compose<'d'>},
    COMPOSITION("caar", 'a', 'a'),
    COMPOSITION("cadr", 'd', 'a'),
    COMPOSITION("cdar", 'a', 'd'),
    COMPOSITION("cddr", 'd', 'd'),
    COMPOSITION("caaar", 'a', 'a', 'a'),
    COMPOSITION("caadr", 'd', 'a', 'a'),
    COMPOSITION("cadar", 'a', 'd', 'a'),
    COMPOSITION("caddr", 'd', 'd', 'a'),
    COMPOSITION("cdaar", 'a', 'a', 'd'),
    COMPOSITION("cdadr", 'd', 'a', 'd'),
    COMPOSITION("cddar", 'a', 'd', 'd'),
    COMPOSITION("cdddr", 'd', 'd', 'd'),
    COMPOSITION("caaaar", 'a', 'a', 'a', 'a'),
    COMPOSITION("caaadr", 'd', 'a', 'a', 'a'),
    COMPOSITION("caadar", 'a', 'd', 'a', 'a'),
    COMPOSITION("caaddr", 'd', 'd', 'a', 'a'),
    COMPOSITION("cadaar", 'a', 'a', 'd', 'a'),
    COMPOSITION("cadadr", 'd', 'a', 'd', 'a'),
    COMPOSITION("caddar", 'a', 'd', 'd', 'a'),
    COMPOSITION("cadddr", 'd', 'd', 'd', 'a'),
    COMPOSITION("cdaaar", 'a', 'a', 'a', 'd'),
    COMPOSITION("cdaadr", 'd', 'a', 'a', 'd'),
    COMPOSITION("cdadar", 'a', 'd', 'a', 'd'),
    COMPOSITION("cdaddr", 'd', 'd', 'a', 'd'),
    COMPOSITION("cddaar", 'a', 'a', 'd', 'd'),
    COMPOSITION("cddadr", 'd', 'a', 'd', 'd'),
    COMPOSITION("cdddar", 'a', 'd', 'd', 'd'),
    COMPOSITION("cddddr", 'd', 'd', 'd', 'd'),
    {"cons", "(cons ITEM LIST)", "Puts an item in front of a list, or makes a dotted pair.", cons},
    {"list", "(list [ITEM ...])", "Makes a list of the items.", list},
    {"vl-list*", "(vl-list* ITEM [ITEM ...])", "Makes a list that ends in the last item.", listStar},
    {"append", "(append [LIST ...])", "Joins lists.", append},
    {"assoc", "(assoc KEY LIST)", "Gives the first item of the list that begins with the key.", assoc},
    {"member", "(member ITEM LIST)", "Gives the rest of the list from the first equal item on.", member},
    {"length", "(length LIST)", "Gives the number of items.", length},
    {"vl-list-length", "(vl-list-length LIST)", "Gives the number of items, nil for a dotted list.", listLengthOrNil},
    {"nth", "(nth INDEX LIST)", "Gives the item at an index, counted from 0.", nth},
    {"last", "(last LIST)", "Gives the last item.", last},
    {"reverse", "(reverse LIST)", "Gives the items in reverse order.", reverse},
    {"subst", "(subst NEW OLD LIST)", "Gives the list with each item equal to OLD replaced.", subst},
    {"vl-remove", "(vl-remove ITEM LIST)", "Gives the list without the items equal to ITEM.", remove},
    {"vl-position", "(vl-position ITEM LIST)", "Gives the index of the first equal item, or nil.", position},
    {"listp", "(listp VALUE)", "Gives T for a list or nil.", isListValue},
    {"vl-consp", "(vl-consp VALUE)", "Gives T for a list that is not empty.", isConsValue},
    {"atom", "(atom VALUE)", "Gives T for anything but a list that is not empty.", isAtom},
    {"null", "(null VALUE)", "Gives T for nil.", isNil},
    {"not", "(not VALUE)", "Gives T for nil.", isNil},
};

} // namespace

std::span<const BuiltinRow> listBuiltins()
{
    return rows;
}

} // namespace lisp
