#pragma once

#include "host/interpreter/Code.h"
#include "host/interpreter/Errors.h"
#include "host/interpreter/Heap.h"
#include "host/interpreter/SymbolTable.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lisp {

class LineInput;
class ModuleService;
struct SourcePositions;

// Where princ, prompt and the rest of the command line go.
class Console
{
public:
    virtual void write(std::u16string_view text) = 0;

protected:
    ~Console() = default;
};

// Runs functions that a loaded module has defined.
class ExternalCaller
{
public:
    virtual Value call(Machine &machine, const External &function, Args arguments) = 0;

protected:
    ~ExternalCaller() = default;
};

// What a machine belongs to. A host that adds built-ins of its own derives from it and finds itself again through
// Machine::owner().
class MachineOwner
{
public:
    // An error that nothing caught ends the program, after its *error* has run.
    virtual void programFailed() {}

protected:
    ~MachineOwner() = default;
};

// How numbers become text where a program names no mode of its own: the drawing's unit variables.
struct UnitVariables
{
    int lunits = 2, luprec = 4, aunits = 0, auprec = 0, unitmode = 0, dimzin = 0;
};

// Runs compiled LISP. One machine is one document's namespace: symbols, heap, stacks. A machine belongs to the thread
// that made it; only interrupt() may come from elsewhere, a signal handler included.
//
// Variables are bound shallowly: a call swaps its arguments with the value cells of the parameters, so that the stack
// slots hold the saved values while the function runs, and swaps back at the end or when an error unwinds the frame.
class Machine
{
public:
    // How deep programs may call. The memory is only taken as far as it is used.
    struct Limits
    {
        std::size_t stackValues = std::size_t{8} * 1024 * 1024;
        std::size_t frames = std::size_t{1024} * 1024;
    };

    explicit Machine(Limits limits);
    Machine() : Machine(Limits()) {}
    ~Machine();
    Machine(const Machine &) = delete;
    Machine &operator=(const Machine &) = delete;

    Heap &heap() { return m_heap; }
    SymbolTable &symbols() { return m_symbols; }
    // The symbol of this name, made when it is new; the case of the name does not matter.
    Symbol *intern(std::u16string_view name) { return m_symbols.intern(name); }
    Value string(std::u16string_view text) { return m_heap.string(text); }
    Value boolean(bool truth) const { return truth ? m_true : Value::nil(); }

    // Compiles and runs one form. Errors leave as LispError, after all bindings are restored.
    Value evaluate(Value form, const SourcePositions *positions = nullptr);
    // Applies a function value: a function, a symbol that names one, or a lambda list. May collect garbage: the caller
    // keeps its own values in Rooted.
    Value call(Value function, std::span<const Value> arguments);
    // Reads and evaluates all forms of a source text; gives the last value. `file` is shown in errors, empty: none.
    // `each` is told every value as it comes.
    Value load(std::u16string_view source, std::u16string_view file, const std::function<void(Value)> &each = {});

    // Defines a built-in; the number of arguments follows from the signature (see Builtins.h).
    Builtin *define(const char *name, const char *signature, const char *description, BuiltinHandler handler);
    void defineExternal(std::u16string_view name, int (*entry)());
    // False when no such function was defined.
    bool undefineExternal(std::u16string_view name);
    void setExternalCaller(ExternalCaller *caller) { m_externalCaller = caller; }

    // Null where the host has no modules.
    void setModuleService(ModuleService *service) { m_moduleService = service; }
    ModuleService *moduleService() const { return m_moduleService; }

    // Is called every few thousand calls and loop turns of a running program: a window can be painted there. It may not
    // run LISP in this machine. An empty function ends that.
    void setPulse(std::function<void()> pulse) { m_pulse = std::move(pulse); }
    void pulse() // for built-ins that take long
    {
        if (m_pulse)
            m_pulse();
    }

    // Null where nobody types.
    void setLineInput(LineInput *input) { m_lineInput = input; }
    LineInput *lineInput() const { return m_lineInput; }

    // Null in a machine that stands alone.
    void setOwner(MachineOwner *owner) { m_owner = owner; }
    MachineOwner *owner() const { return m_owner; }

    void setConsole(Console *console) { m_console = console; }
    void write(std::u16string_view text)
    {
        if (m_console)
            m_console->write(text);
    }
    UnitVariables &unitVariables() { return m_unitVariables; }
    // Folders that findfile and load search after the current one.
    std::vector<std::u16string> &searchFolders() { return m_searchFolders; }

    // Makes the running program fail with "Function cancelled" at its next safe point. A program that catches this
    // error and goes on is failed again, at every safe point, from the second interrupt on. Gives the number of
    // interrupts since they were cleared. Async-signal-safe.
    int interrupt() { return m_interrupts.fetch_add(1, std::memory_order_relaxed) + 1; }
    void clearInterrupts();
    // Whether that failure is still to come; what takes long asks, gives up, and lets it come.
    bool isInterrupted() const { return m_interrupts.load(std::memory_order_relaxed) > m_interruptsRaised; }
    void raiseInterrupt(); // lets it come now; nothing without one
    // Fails the program after about this many calls and loop turns; 0: no limit.
    void setStepLimit(std::uint64_t steps);

    // The built-in that a name in function position still means; null when it means something else.
    const Builtin *builtinNamed(Value head) const;
    std::optional<Primitive> primitiveOf(const Symbol *symbol) const;
    bool isLambda(Value value) const;
    // The compiled form of a lambda list, kept as long as the list is reachable.
    Function *compileLambda(Value lambda, const SourcePositions *positions = nullptr);

    // From now on each call through the symbol is shown on the command line; see Tracing.cpp.
    void trace(Symbol *symbol);
    void untrace(Symbol *symbol);

    void collectGarbage();
    std::vector<TraceEntry> backTrace() const;
    // Raises the stack-limit error when the native stack is nearly used up; for C++ code that recurses.
    void checkNativeStack() const;

    // While one is alive, errors are somebody's to catch and *error* is not called for them.
    class CatchScope
    {
    public:
        explicit CatchScope(Machine &machine) : m_machine(machine) { ++m_machine.m_catchDepth; }
        ~CatchScope() { --m_machine.m_catchDepth; }
        CatchScope(const CatchScope &) = delete;
        CatchScope &operator=(const CatchScope &) = delete;

    private:
        Machine &m_machine;
    };

private:
    friend class Rooted;

    struct PrimitiveEntry
    {
        Symbol *symbol = nullptr;
        Value function; // what the symbol means as long as nobody redefines it
    };
    struct Frame
    {
        const Instruction *next; // where the frame goes on; for the back trace while it calls
        Function *function;
        Value *base; // first argument, holding the saved value of the first parameter
        std::size_t bindings;
    };
    struct FreeMemory // the stacks are left uninitialised, so that the system commits only the pages in use
    {
        void operator()(void *memory) const { std::free(memory); }
    };
    struct Binding // made by foreach
    {
        Symbol *symbol;
        Value saved;
    };

    Value run(std::size_t entryDepth);
    Value dispatch(std::size_t entryDepth);
    void enter(Function *function, std::uint32_t argumentCount);
    void leaveFrame();
    void unwind(std::size_t depth);
    Value callBuiltin(const Builtin &builtin, std::uint32_t argumentCount);
    Value callTraced(const Traced &traced, std::uint32_t argumentCount);
    Value callExternal(const External &external, std::uint32_t argumentCount);
    // The function that a value stands for, compiled if it is a lambda list; raises "bad function".
    Object *resolveFunction(Value function);
    Value callPrimitive(Primitive primitive, Value *top, std::initializer_list<Value> operands);
    // Applies a function to the topmost argumentCount values of the stack and pops them.
    Value applyToStack(Value function, std::uint32_t argumentCount);
    void restoreBindings(std::size_t count);
    class ErrorHandlerScope;
    void markLambdas(Marker &marker);
    void definePrimitives();
    void safePoint();
    void noteError(LispError &error);
    template <class Work, class Place> auto withPlace(Work work, Place place);
    void callErrorHandler(LispError &error);
    void markRoots(Marker &marker);
    void pushValue(Value value);

    static constexpr std::int32_t SafePointInterval = 4096;

    std::int32_t m_countdown = SafePointInterval; // safe points until the next visit of safePoint()
    Heap m_heap;
    SymbolTable m_symbols;
    Value m_true;
    Symbol *m_errorSymbol;

    Symbol *m_lambdaSymbol;
    std::array<PrimitiveEntry, static_cast<std::size_t>(Primitive::Count)> m_primitives;

    std::unique_ptr<Value[], FreeMemory> m_stack;
    Value *m_top;      // first free slot
    Value *m_stackEnd; // the calls stop short of it
    std::unique_ptr<Frame[], FreeMemory> m_frames;
    std::size_t m_frameLimit;
    std::size_t m_depth = 0; // frames in use
    std::vector<Binding> m_bindings;

    std::unordered_map<const Cons *, Function *> m_lambdas; // compiled forms of lambda lists that were applied
    std::vector<std::unique_ptr<std::u16string>> m_files;
    ExternalCaller *m_externalCaller = nullptr;
    ModuleService *m_moduleService = nullptr;
    LineInput *m_lineInput = nullptr;
    MachineOwner *m_owner = nullptr;
    std::function<void()> m_pulse;
    Console *m_console = nullptr;
    UnitVariables m_unitVariables;
    std::vector<std::u16string> m_searchFolders;

    unsigned m_traceDepth = 0; // traced calls under way
    int m_catchDepth = 0;
    bool m_inErrorHandler = false;
    std::atomic<int> m_interrupts = 0;
    int m_interruptsRaised = 0;
    std::uint64_t m_stepLimit = 0;
    std::uint64_t m_steps = 0;
    const char *m_nativeStackLimit;
};

// Keeps a value reachable while C++ code calls back into the machine. Strictly nested, on the machine's stack.
class Rooted
{
public:
    Rooted(Machine &machine, Value value) : m_machine(machine), m_slot(machine.m_top) { machine.pushValue(value); }
    ~Rooted() { m_machine.m_top = m_slot; }
    Rooted(const Rooted &) = delete;
    Rooted &operator=(const Rooted &) = delete;

    Value get() const { return *m_slot; }
    void set(Value value) { *m_slot = value; }

private:
    Machine &m_machine;
    Value *m_slot;
};

} // namespace lisp
