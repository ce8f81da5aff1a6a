// trace and untrace: a traced symbol holds a Traced object around its function, which the machine meets only where it
// has found no other kind of function, so that calls of all others cost what they did.

#include "host/interpreter/Machine.h"
#include "host/interpreter/Printer.h"

#include <algorithm>

namespace lisp {

namespace {

Traced *tracedIn(const Symbol *symbol)
{
    const Value value = symbol->value;
    if (!value.isObject() || value.asObject()->kind != ObjectKind::Traced)
        return nullptr;
    return static_cast<Traced *>(value.asObject());
}

// Like print, each line begins with a newline: what the functions themselves print may end anywhere.
std::u16string lineAt(unsigned depth, std::u16string_view label)
{
    constexpr unsigned DeepestIndent = 40;
    std::u16string line(1, u'\n');
    line.append(std::size_t{2} * std::min(depth, DeepestIndent), u' ');
    return line.append(label);
}

class Nesting
{
public:
    explicit Nesting(unsigned &depth) : m_depth(depth) { ++m_depth; }
    ~Nesting() { --m_depth; }
    Nesting(const Nesting &) = delete;
    Nesting &operator=(const Nesting &) = delete;

private:
    unsigned &m_depth;
};

} // namespace

void Machine::trace(Symbol *symbol)
{
    if (tracedIn(symbol))
        return;
    const Object *function = resolveFunction(Value::symbol(symbol)); // raises an error where there is none
    if (function->kind == ObjectKind::Builtin && static_cast<const Builtin *>(function)->specialForm)
        fail(u"cannot trace a special form: " + symbol->name);
    Traced *traced = m_heap.newTraced();
    traced->function = symbol->value;
    traced->name = symbol;
    symbol->value = Value::object(traced);
}

void Machine::untrace(Symbol *symbol)
{
    if (const Traced *traced = tracedIn(symbol))
        symbol->value = traced->function;
}

Value Machine::callTraced(const Traced &traced, std::uint32_t argumentCount)
{
    std::u16string entry = lineAt(m_traceDepth, u"Entering (") + traced.name->name;
    for (const Value *argument = m_top - argumentCount; argument != m_top; ++argument)
        entry.append(u" ").append(printed(*argument));
    write(entry += u')');
    Value result;
    {
        const Nesting nesting(m_traceDepth);
        result = applyToStack(traced.function, argumentCount);
    }
    write(lineAt(m_traceDepth, u"Result: ") + printed(result));
    return result;
}

} // namespace lisp
