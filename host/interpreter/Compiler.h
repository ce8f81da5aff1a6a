#pragma once

#include "host/interpreter/Code.h"
#include "host/interpreter/Machine.h"

#include <span>

namespace lisp {

class Compiler;

// A form whose arguments are not evaluated before it. The compiler's table of them is in SpecialForms.cpp.
struct SpecialForm
{
    enum class Want : bool { Effect, Value };

    const char *name;
    const char *signature;
    const char *description;
    void (Compiler::*compile)(Value arguments, Want want);
    BuiltinHandler applied; // the same on evaluated arguments, for apply and mapcar; null: not applicable
};

std::span<const SpecialForm> specialForms();

// Translates one function or top-level form into code. Malformed code compiles to an instruction that raises the error
// when the program gets there, so that a mistake in a branch that is never taken does not stop a program from loading.
class Compiler
{
public:
    using Want = SpecialForm::Want;
    static constexpr std::u16string_view BadParameterList = u"bad formal argument list";

    Compiler(Machine &machine, const SourcePositions *positions);

    // Code of a top-level form. Nothing of the result is reachable for the collector yet; as compiling never collects,
    // the caller has until its next call into the machine to keep it.
    Function *compileForm(Value form);
    // A list of symbols.
    static bool isParameterList(Value parameters);
    // Code of a function with this parameter list (parameters / locals) and body.
    Function *compileFunction(const Symbol *name, Value parameters, Value body);

    // Translations of the special forms.
    void compileQuote(Value arguments, Want want);
    void compileFunctionForm(Value arguments, Want want);
    void compileLambda(Value arguments, Want want);
    void compileSetq(Value arguments, Want want);
    void compileIf(Value arguments, Want want);
    void compileCond(Value arguments, Want want);
    void compileAnd(Value arguments, Want want);
    void compileOr(Value arguments, Want want);
    void compileProgn(Value arguments, Want want);
    void compileWhile(Value arguments, Want want);
    void compileRepeat(Value arguments, Want want);
    void compileForeach(Value arguments, Want want);
    void compileDefun(Value arguments, Want want);
    void compileDefunQ(Value arguments, Want want);
    void compileTrace(Value arguments, Want want);
    void compileUntrace(Value arguments, Want want);

private:
    struct Label
    {
        std::size_t target = 0;
        bool bound = false;
        std::vector<std::size_t> uses;
    };
    enum class Operand { Stack, Variable, Constant };
    struct Operands // of a primitive with two arguments
    {
        Value left, right;
        unsigned mode; // 0 … 4: SS SV SK VV VK
    };

    Function *finish();
    void compile(Value form, Want want);
    void compileList(Value form, Want want);
    void compileCall(Value head, Value arguments);
    void compileUnevaluatedCall(std::u16string_view name, Value arguments, Want want);
    bool compilePrimitive(const Symbol *symbol, Value arguments);
    // Jumps to the label if the form's truth is `sense`.
    void compileBranch(Value form, bool sense, Label &label);
    bool compileBranchOnList(Value form, bool sense, Label &label);
    void compileJunction(Value arguments, bool stopAt, bool sense, Label &label);
    void compileJunctionValue(Value arguments, bool stopAt, Want want);
    void compileBody(Value forms, Want want);
    void compileFailure(std::u16string_view message, Want want);
    void compileConstant(Value value, Want want);

    Operands prepareOperands(Value left, Value right);
    void emitPrimitive(Operation first, const Operands &operands, Label *label);
    static Operand operandKind(Value form);

    std::size_t emit(Operation operation, int stackEffect);
    void emitConstant(Value value);
    void emitSymbol(Operation operation, const Symbol *symbol, int stackEffect);
    void emitJump(Operation operation, Label &label, int stackEffect);
    void bind(Label &label);
    void keep(Value constant);

    Machine &m_machine;
    const SourcePositions *m_positions;
    Function *m_function;
    std::uint32_t m_line = 0;
    std::uint32_t m_stackDepth = 0;
};

// The number of items of a list; -1 when it is improper.
std::int64_t listLength(Value list);

} // namespace lisp
