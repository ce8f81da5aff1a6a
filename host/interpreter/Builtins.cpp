#include "host/interpreter/Builtins.h"

#include "host/interpreter/Compiler.h"

#include <limits>
#include <numbers>

namespace lisp {

std::int32_t Args::integer(std::uint32_t index) const
{
    const Value value = (*this)[index];
    if (!value.isInteger())
        badArgument(u"fixnump:", value);
    return value.asInteger();
}

double Args::number(std::uint32_t index) const
{
    const Value value = (*this)[index];
    if (!value.isNumber())
        badArgument(u"numberp:", value);
    return value.asDouble();
}

std::u16string_view Args::text(std::uint32_t index) const
{
    const Value value = (*this)[index];
    if (!value.isString())
        badArgument(u"stringp", value);
    return value.asString()->view();
}

Value Args::list(std::uint32_t index) const
{
    const Value value = (*this)[index];
    if (!value.isList())
        badArgument(u"listp", value);
    return value;
}

Cons *Args::cons(std::uint32_t index) const
{
    const Value value = (*this)[index];
    if (!value.isCons())
        badArgument(u"consp", value);
    return value.asCons();
}

Symbol *Args::symbol(std::uint32_t index) const
{
    const Value value = (*this)[index];
    if (!value.isSymbol())
        badArgument(u"symbolp", value);
    return value.asSymbol();
}

std::vector<Value> itemsOf(Value list)
{
    std::vector<Value> items;
    for (const Value item : ListItems(list))
        items.push_back(item);
    return items;
}

ArgumentRange argumentRange(std::string_view signature)
{
    constexpr std::uint32_t Unlimited = std::numeric_limits<std::uint32_t>::max();
    ArgumentRange range{0, 0};
    int optionalDepth = 0;
    std::size_t i = signature.find(' ');
    while (i < signature.size()) {
        const char c = signature[i];
        if (c >= 'A' && c <= 'Z') {
            i = signature.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-", i);
            range.minimum += optionalDepth == 0 ? 1 : 0;
            range.maximum += range.maximum == Unlimited ? 0 : 1;
            continue;
        }
        if (c == '[')
            ++optionalDepth;
        else if (c == ']')
            --optionalDepth;
        else if (c == '.')
            range.maximum = Unlimited;
        ++i;
    }
    return range;
}

void defineBuiltins(Machine &machine, std::span<const BuiltinRow> family)
{
    for (const BuiltinRow &row : family)
        machine.define(row.name, row.signature, row.description, row.handler);
}

void defineBuiltins(Machine &machine)
{
    for (const SpecialForm &form : specialForms())
        machine.define(form.name, form.signature, form.description, form.applied)->specialForm = &form;
    for (const auto family :
         {listBuiltins(), numberBuiltins(), comparisonBuiltins(), geometryBuiltins(), functionBuiltins(),
          sequenceBuiltins(), symbolBuiltins(), outputBuiltins(), stringBuiltins(), conversionBuiltins(),
          fileBuiltins(), fileNameBuiltins(), systemBuiltins()})
        defineBuiltins(machine, family);
    machine.intern(u"PI")->value = Value::real(std::numbers::pi);
    machine.intern(u"PAUSE")->value = machine.string(u"\\");
}

} // namespace lisp
