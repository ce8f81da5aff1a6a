// Calls, errors and memory of the machine; the instructions themselves are in Dispatch.cpp.

#include "host/interpreter/Machine.h"

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Compiler.h"
#include "host/interpreter/NativeStack.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/Reader.h"

#include <algorithm>
#include <new>

namespace lisp {

namespace {

constexpr std::size_t StackReserve = 1024; // values above the limit, for built-ins that need room to report an error

// What *error* may use beyond the limits, so that it runs also after the error that they were reached.
constexpr std::size_t HandlerValues = std::size_t{64} * 1024;
constexpr std::size_t HandlerFrames = 1024;
constexpr std::size_t HandlerNativeStack = std::size_t{512} * 1024;
constexpr std::size_t HandlerMemory = std::size_t{4} * 1024 * 1024;

constexpr std::u16string_view StackLimitMessage = u"internal stack limit reached";
constexpr std::u16string_view OutOfMemoryMessage = u"out of memory";

template <class T> T *uninitialisedArray(std::size_t count)
{
    void *memory = std::malloc(count * sizeof(T));
    if (!memory)
        throw std::bad_alloc();
    return static_cast<T *>(memory);
}

} // namespace

Machine::Machine(Limits limits)
    : m_heap(m_countdown), m_errorSymbol(m_symbols.intern(u"*ERROR*")), m_lambdaSymbol(m_symbols.intern(u"LAMBDA")),
      m_stack(uninitialisedArray<Value>(limits.stackValues + HandlerValues + StackReserve)), m_top(m_stack.get()),
      m_stackEnd(m_stack.get() + limits.stackValues),
      m_frames(uninitialisedArray<Frame>(limits.frames + HandlerFrames)), m_frameLimit(limits.frames),
      m_nativeStackLimit(nativeStackLimit() + HandlerNativeStack)
{
    Symbol *t = m_symbols.intern(u"T");
    m_true = t->value = Value::symbol(t);
    defineBuiltins(*this);
    definePrimitives();
}

Machine::~Machine() = default;

void Machine::definePrimitives()
{
    constexpr std::pair<Primitive, std::u16string_view> names[] = {
#define X(name, text) {Primitive::name, u##text},
        LISP_ARITHMETIC_PRIMITIVES(X) LISP_COMPARISON_PRIMITIVES(X) LISP_UNARY_PRIMITIVES(X) LISP_NOT_PRIMITIVES(X)
#undef X
            {Primitive::Cons, u"cons"},
    };
    for (const auto &[primitive, name] : names) {
        Symbol *symbol = m_symbols.intern(name);
        m_primitives[static_cast<std::size_t>(primitive)] = {symbol, symbol->value};
    }
}

std::optional<Primitive> Machine::primitiveOf(const Symbol *symbol) const
{
    const auto found = std::find_if(m_primitives.begin(), m_primitives.end(),
                                    [symbol](const PrimitiveEntry &entry) { return entry.symbol == symbol; });
    if (found == m_primitives.end())
        return std::nullopt;
    return static_cast<Primitive>(found - m_primitives.begin());
}

const Builtin *Machine::builtinNamed(Value head) const
{
    if (!head.isSymbol() || !head.asSymbol()->value.isObject())
        return nullptr;
    const Object *object = head.asSymbol()->value.asObject();
    if (object->kind != ObjectKind::Builtin)
        return nullptr;
    const auto *builtin = static_cast<const Builtin *>(object);
    return builtin->name == head.asSymbol() ? builtin : nullptr;
}

Value Machine::evaluate(Value form, const SourcePositions *positions)
{
    checkNativeStack();
    enter(Compiler(*this, positions).compileForm(form), 0);
    return run(m_depth - 1);
}

Value Machine::call(Value function, std::span<const Value> arguments)
{
    for (const Value argument : arguments)
        pushValue(argument);
    return applyToStack(function, static_cast<std::uint32_t>(arguments.size()));
}

// Reading and compiling fail at places that no frame stands for: `place` tells them.
template <class Work, class Place> auto Machine::withPlace(Work work, Place place)
{
    const auto note = [&](LispError &error) {
        if (error.traced)
            return;
        error.trace = backTrace();
        error.trace.insert(error.trace.begin(), place());
        noteError(error);
    };
    try {
        return work();
    } catch (LispError &error) {
        note(error);
        throw;
    } catch (const std::bad_alloc &) {
        LispError error{std::u16string(OutOfMemoryMessage)};
        note(error);
        throw error;
    }
}

Value Machine::load(std::u16string_view source, std::u16string_view file, const std::function<void(Value)> &each)
{
    SourcePositions positions;
    if (!file.empty())
        positions.file = m_files.emplace_back(std::make_unique<std::u16string>(file)).get();
    Reader reader(m_heap, m_symbols, source, &positions);
    Rooted last(*this, Value::nil());
    for (;;) {
        const std::optional<Value> form =
            withPlace([&] { return reader.read(); },
                      [&] {
                          return TraceEntry{u"", std::u16string(file), reader.lineNumber(), reader.columnNumber()};
                      });
        if (!form)
            return last.get();
        last.set(withPlace([&] { return evaluate(*form, &positions); },
                           [&] {
                               const std::uint32_t line = form->isCons() ? positions.lineOf(form->asCons()) : 0;
                               return TraceEntry{u"", std::u16string(file), line, 0};
                           }));
        if (each)
            each(last.get());
    }
}

Builtin *Machine::define(const char *name, const char *signature, const char *description, BuiltinHandler handler)
{
    Builtin *builtin = m_heap.newBuiltin();
    const std::string_view text(name);
    Symbol *symbol = intern(std::u16string(text.begin(), text.end()));
    builtin->name = symbol;
    builtin->signature = signature;
    builtin->description = description;
    builtin->handler = handler;
    const auto [minimum, maximum] = argumentRange(signature);
    builtin->minimum = minimum;
    builtin->maximum = maximum;
    symbol->value = Value::object(builtin);
    return builtin;
}

void Machine::defineExternal(std::u16string_view name, int (*entry)())
{
    External *external = m_heap.newExternal();
    external->name = intern(name);
    external->entry = entry;
    intern(name)->value = Value::object(external);
}

bool Machine::undefineExternal(std::u16string_view name)
{
    Symbol *symbol = m_symbols.find(name);
    if (symbol)
        untrace(symbol);
    const Value value = symbol ? symbol->value : Value::nil();
    if (!value.isObject() || value.asObject()->kind != ObjectKind::External)
        return false;
    symbol->value = Value::nil();
    return true;
}

void Machine::setStepLimit(std::uint64_t steps)
{
    m_stepLimit = steps;
    m_steps = 0;
}

bool Machine::isLambda(Value value) const
{
    return value.isCons() && value.asCons()->car == Value::symbol(m_lambdaSymbol) && value.asCons()->cdr.isCons();
}

Function *Machine::compileLambda(Value lambda, const SourcePositions *positions)
{
    const Cons *key = lambda.asCons();
    if (const auto found = m_lambdas.find(key); found != m_lambdas.end())
        return found->second;
    // (lambda PARAMETERS BODY ...), or (PARAMETERS BODY ...) as defun-q keeps it
    const Cons *definition = isLambda(lambda) ? key->cdr.asCons() : key;
    if (!Compiler::isParameterList(definition->car))
        fail(Compiler::BadParameterList);
    Function *function = Compiler(*this, positions).compileFunction(nullptr, definition->car, definition->cdr);
    m_lambdas.emplace(key, function);
    return function;
}

Object *Machine::resolveFunction(Value function)
{
    const Value named = function;
    if (function.isSymbol())
        function = function.asSymbol()->value;
    if (function.isObject() && function.asObject()->kind != ObjectKind::Native)
        return function.asObject();
    if (isLambda(function) || (function.isCons() && function.asCons()->car.isList()))
        return compileLambda(function);
    if (named.isSymbol() && function.isNil())
        fail(u"no function definition: " + named.asSymbol()->name);
    fail(u"bad function: " + printed(named.isSymbol() ? function : named));
}

Value Machine::applyToStack(Value function, std::uint32_t argumentCount)
{
    checkNativeStack();
    Object *object = resolveFunction(function);
    switch (object->kind) {
    case ObjectKind::Builtin:
        return callBuiltin(*static_cast<Builtin *>(object), argumentCount);
    case ObjectKind::External:
        return callExternal(*static_cast<External *>(object), argumentCount);
    case ObjectKind::Traced:
        return callTraced(*static_cast<Traced *>(object), argumentCount);
    default:
        enter(static_cast<Function *>(object), argumentCount);
        return run(m_depth - 1);
    }
}

Value Machine::callBuiltin(const Builtin &builtin, std::uint32_t argumentCount)
{
    if (!builtin.handler)
        fail(u"bad function: " + printed(Value::object(&builtin)));
    if (argumentCount < builtin.minimum)
        fail(u"too few arguments");
    if (argumentCount > builtin.maximum)
        fail(u"too many arguments");
    Value *arguments = m_top - argumentCount;
    const Value result = builtin.handler(*this, Args(arguments, argumentCount));
    m_top = arguments;
    return result;
}

Value Machine::callExternal(const External &external, std::uint32_t argumentCount)
{
    if (!m_externalCaller)
        fail(u"no function definition: " + external.name->name);
    Value *arguments = m_top - argumentCount;
    const Value result = m_externalCaller->call(*this, external, Args(arguments, argumentCount));
    m_top = arguments;
    return result;
}

Value Machine::callPrimitive(Primitive primitive, Value *top, std::initializer_list<Value> operands)
{
    m_top = std::copy(operands.begin(), operands.end(), top);
    const Symbol *symbol = m_primitives[static_cast<std::size_t>(primitive)].symbol;
    return applyToStack(Value::symbol(symbol), static_cast<std::uint32_t>(operands.size()));
}

// Binds the topmost values of the stack to the parameters and makes the function's frame.
void Machine::enter(Function *function, std::uint32_t argumentCount)
{
    if (argumentCount != function->parameterCount)
        fail(argumentCount < function->parameterCount ? u"too few arguments" : u"too many arguments");
    Value *base = m_top - argumentCount;
    if (m_depth >= m_frameLimit || base + function->stackNeed > m_stackEnd)
        fail(StackLimitMessage);
    Value *slot = base;
    for (Symbol *variable : function->variables) {
        const Value bound = slot < m_top ? *slot : Value::nil();
        *slot++ = std::exchange(variable->value, bound);
    }
    m_top = slot;
    m_frames[m_depth++] = {function->code.data(), function, base, m_bindings.size()};
}

void Machine::leaveFrame()
{
    const Frame &frame = m_frames[--m_depth];
    restoreBindings(frame.bindings);
    const std::vector<Symbol *> &variables = frame.function->variables;
    for (std::size_t i = variables.size(); i-- > 0;)
        variables[i]->value = frame.base[i];
    m_top = frame.base;
}

void Machine::restoreBindings(std::size_t count)
{
    while (m_bindings.size() > count) {
        m_bindings.back().symbol->value = m_bindings.back().saved;
        m_bindings.pop_back();
    }
}

void Machine::unwind(std::size_t depth)
{
    while (m_depth > depth)
        leaveFrame();
}

Value Machine::run(std::size_t entryDepth)
{
    try {
        if (--m_countdown <= 0)
            safePoint();
        return dispatch(entryDepth);
    } catch (LispError &error) {
        noteError(error);
        unwind(entryDepth);
        throw;
    } catch (const std::bad_alloc &) {
        LispError error{std::u16string(OutOfMemoryMessage)};
        noteError(error);
        unwind(entryDepth);
        throw error;
    } catch (...) {
        unwind(entryDepth);
        throw;
    }
}

// Called where an error is first seen, with all frames still in place: *error* runs in the scope of the failure.
void Machine::noteError(LispError &error)
{
    if (!std::exchange(error.traced, true) && error.trace.empty())
        error.trace = backTrace();
    if (m_catchDepth > 0 || m_inErrorHandler || std::exchange(error.offered, true))
        return;
    callErrorHandler(error);
    if (m_owner)
        m_owner->programFailed();
}

// While *error* runs: it has room of its own, and its errors do not call it again.
class Machine::ErrorHandlerScope
{
public:
    explicit ErrorHandlerScope(Machine &machine) : m_machine(machine), m_memoryLimit(machine.m_heap.limit())
    {
        m_machine.m_inErrorHandler = true;
        m_machine.m_stackEnd += HandlerValues;
        m_machine.m_frameLimit += HandlerFrames;
        m_machine.m_nativeStackLimit -= HandlerNativeStack;
        m_machine.m_heap.setLimit(m_memoryLimit + std::min(HandlerMemory, Heap::Unlimited - m_memoryLimit));
    }
    ~ErrorHandlerScope()
    {
        m_machine.m_inErrorHandler = false;
        m_machine.m_stackEnd -= HandlerValues;
        m_machine.m_frameLimit -= HandlerFrames;
        m_machine.m_nativeStackLimit += HandlerNativeStack;
        m_machine.m_heap.setLimit(m_memoryLimit);
    }
    ErrorHandlerScope(const ErrorHandlerScope &) = delete;
    ErrorHandlerScope &operator=(const ErrorHandlerScope &) = delete;

private:
    Machine &m_machine;
    const std::size_t m_memoryLimit;
};

void Machine::callErrorHandler(LispError &error)
{
    const Value handler = m_errorSymbol->value;
    if (handler.isNil())
        return;
    const ErrorHandlerScope scope(*this);
    try {
        const Value message = m_heap.string(error.message);
        call(handler, {&message, 1});
    } catch (const LispError &failure) {
        if (failure.kind == LispError::Kind::Failure)
            error.handlerFailure = failure.message;
    } catch (const std::bad_alloc &) {
        error.handlerFailure = OutOfMemoryMessage;
    }
}

std::vector<TraceEntry> Machine::backTrace() const
{
    constexpr std::size_t Shown = 100; // innermost frames
    std::vector<TraceEntry> entries;
    for (std::size_t depth = m_depth; depth-- > 0 && entries.size() < Shown;) {
        const Frame &frame = m_frames[depth];
        const Function &function = *frame.function;
        const auto done = static_cast<std::size_t>(frame.next - function.code.data());
        TraceEntry entry;
        entry.function = function.name ? function.name->name : u"";
        entry.file = function.file ? *function.file : u"";
        entry.line = function.lines[done == 0 ? 0 : done - 1];
        entries.push_back(std::move(entry));
    }
    return entries;
}

void Machine::checkNativeStack() const
{
    if (const char here = 0; &here < m_nativeStackLimit)
        fail(StackLimitMessage);
}

void Machine::pushValue(Value value)
{
    if (m_top >= m_stackEnd + StackReserve / 2)
        fail(StackLimitMessage);
    *m_top++ = value;
}

void Machine::clearInterrupts()
{
    m_interrupts.store(0, std::memory_order_relaxed);
    m_interruptsRaised = 0;
}

void Machine::raiseInterrupt()
{
    const int interrupts = m_interrupts.load(std::memory_order_relaxed);
    const bool insists = interrupts > 1;
    if (!insists && interrupts == m_interruptsRaised)
        return;
    m_interruptsRaised = interrupts;
    if (insists)
        m_countdown = 1;
    fail(u"Function cancelled");
}

void Machine::safePoint()
{
    m_countdown = SafePointInterval;
    if (m_heap.collectionDue())
        collectGarbage();
    pulse();
    raiseInterrupt();
    if (m_stepLimit != 0 && (m_steps += SafePointInterval) > m_stepLimit) {
        m_countdown = 1; // every further safe point fails too, also in loops that catch this error
        fail(u"step limit reached");
    }
}

void Machine::collectGarbage()
{
    m_heap.collect([this](Marker &marker) { markRoots(marker); });
}

void Machine::markRoots(Marker &marker)
{
    for (const Value *value = m_stack.get(); value != m_top; ++value)
        marker.mark(*value);
    for (std::size_t depth = 0; depth < m_depth; ++depth)
        marker.mark(m_frames[depth].function);
    for (const Binding &binding : m_bindings)
        marker.mark(binding.saved);
    for (const Symbol &symbol : m_symbols.all())
        marker.mark(symbol.value);
    for (const PrimitiveEntry &entry : m_primitives)
        marker.mark(entry.function);
    markLambdas(marker);
}

// The compiled form lives as long as its list. Marking one may reach the list of another, hence the repetition.
void Machine::markLambdas(Marker &marker)
{
    for (bool again = true; again;) {
        again = false;
        for (const auto &[list, function] : m_lambdas) {
            if (!function->marked && m_heap.isMarked(list)) {
                marker.mark(function);
                again = true;
            }
        }
    }
    std::erase_if(m_lambdas, [this](const auto &entry) { return !m_heap.isMarked(entry.first); });
}

} // namespace lisp
