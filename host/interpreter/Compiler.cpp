// Expressions, calls and branches; the special forms are in CompilerForms.cpp.

#include "host/interpreter/Compiler.h"

#include "host/interpreter/Reader.h"

#include <algorithm>
#include <limits>

namespace lisp {

namespace {

constexpr unsigned OperandModes = 5; // SS SV SK VV VK, in this order in Operation

Operation offsetBy(Operation first, unsigned steps)
{
    return static_cast<Operation>(static_cast<unsigned>(first) + steps);
}

unsigned indexOf(Primitive primitive, Primitive first)
{
    return static_cast<unsigned>(primitive) - static_cast<unsigned>(first);
}

bool isBinary(Primitive primitive)
{
    return primitive < Primitive::Car;
}

bool isComparison(Primitive primitive)
{
    return primitive >= Primitive::Equal && primitive < Primitive::Car;
}

} // namespace

std::int64_t listLength(Value list)
{
    std::int64_t length = 0;
    for (; list.isCons(); list = list.asCons()->cdr)
        ++length;
    return list.isNil() ? length : -1;
}

Compiler::Compiler(Machine &machine, const SourcePositions *positions)
    : m_machine(machine), m_positions(positions), m_function(machine.heap().newFunction())
{
    m_function->file = positions ? positions->file : nullptr;
}

Function *Compiler::compileForm(Value form)
{
    compile(form, Want::Value);
    return finish();
}

Function *Compiler::finish()
{
    emit(Operation::Return, -1);
    m_machine.heap().noteCompleted(*m_function);
    return m_function;
}

Function *Compiler::compileFunction(const Symbol *name, Value parameters, Value body)
{
    m_function->name = name;
    bool locals = false;
    for (Value rest = parameters; rest.isCons(); rest = rest.asCons()->cdr) {
        Symbol *symbol = rest.asCons()->car.asSymbol();
        if (symbol->name == u"/") {
            locals = true;
            continue;
        }
        m_function->variables.push_back(symbol);
        m_function->parameterCount += locals ? 0 : 1;
    }
    compileBody(body, Want::Value);
    m_function->stackNeed += static_cast<std::uint32_t>(m_function->variables.size());
    return finish();
}

bool Compiler::isParameterList(Value parameters)
{
    for (; parameters.isCons(); parameters = parameters.asCons()->cdr)
        if (!parameters.asCons()->car.isSymbol())
            return false;
    return parameters.isNil();
}

void Compiler::compile(Value form, Want want)
{
    if (form.isCons())
        return compileList(form, want);
    if (want == Want::Effect)
        return;
    if (form.isSymbol())
        emitSymbol(Operation::Variable, form.asSymbol(), 1);
    else
        emitConstant(form);
}

void Compiler::compileList(Value form, Want want)
{
    m_machine.checkNativeStack();
    const Value head = form.asCons()->car;
    const Value arguments = form.asCons()->cdr;
    const std::uint32_t outerLine = m_line;
    if (const std::uint32_t line = m_positions ? m_positions->lineOf(form.asCons()) : 0)
        m_line = line;

    if (listLength(arguments) < 0) {
        compileFailure(u"malformed list in a call", want);
    } else if (const Builtin *builtin = m_machine.builtinNamed(head); builtin && builtin->specialForm) {
        (this->*builtin->specialForm->compile)(arguments, want);
    } else {
        if (!builtin || !compilePrimitive(head.asSymbol(), arguments))
            compileCall(head, arguments);
        if (want == Want::Effect)
            emit(Operation::Pop, -1);
    }
    m_line = outerLine;
}

void Compiler::compileCall(Value head, Value arguments)
{
    const std::int64_t count = listLength(arguments);
    if (count > std::numeric_limits<std::uint16_t>::max())
        return compileFailure(u"too many arguments", Want::Value);
    if (!head.isSymbol())
        compile(head, Want::Value);
    for (Value rest = arguments; rest.isCons(); rest = rest.asCons()->cdr)
        compile(rest.asCons()->car, Want::Value);
    const int effect = 1 - static_cast<int>(count);
    if (head.isSymbol())
        emitSymbol(Operation::Call, head.asSymbol(), effect);
    else
        emit(Operation::CallValue, effect - 1);
    m_function->code.back().count = static_cast<std::uint16_t>(count);
}

bool Compiler::compilePrimitive(const Symbol *symbol, Value arguments)
{
    const std::optional<Primitive> primitive = m_machine.primitiveOf(symbol);
    const std::int64_t count = listLength(arguments);
    if (!primitive || count < 1 || count > 2)
        return false;
    const Value first = arguments.asCons()->car;
    if (count == 2) {
        const Value second = arguments.asCons()->cdr.asCons()->car;
        if (isBinary(*primitive)) {
            const Operation operation = offsetBy(Operation::AddSS, OperandModes * indexOf(*primitive, Primitive::Add));
            emitPrimitive(operation, prepareOperands(first, second), nullptr);
            return true;
        }
        if (*primitive != Primitive::Cons)
            return false;
        compile(first, Want::Value);
        compile(second, Want::Value);
        emit(Operation::Cons, -1);
        return true;
    }
    if (isBinary(*primitive) || *primitive == Primitive::Cons)
        return false;
    const Operation operation = offsetBy(Operation::CarS, 2 * indexOf(*primitive, Primitive::Car));
    if (first.isSymbol()) {
        emitSymbol(offsetBy(operation, 1), first.asSymbol(), 1);
    } else {
        compile(first, Want::Value);
        emit(operation, 0);
    }
    return true;
}

Compiler::Operand Compiler::operandKind(Value form)
{
    if (form.isSymbol())
        return Operand::Variable;
    return form.isCons() ? Operand::Stack : Operand::Constant;
}

// Pushes the operands that go through the stack. A variable on the left is read in place only when nothing that stands
// on the right could change it first.
Compiler::Operands Compiler::prepareOperands(Value left, Value right)
{
    const Operand rightKind = operandKind(right);
    if (operandKind(left) == Operand::Variable && rightKind != Operand::Stack)
        return {left, right, rightKind == Operand::Variable ? 3u : 4u};
    compile(left, Want::Value);
    if (rightKind == Operand::Stack)
        compile(right, Want::Value);
    return {left, right, static_cast<unsigned>(rightKind)};
}

// With a label the instruction is a branch, which leaves nothing on the stack.
void Compiler::emitPrimitive(Operation first, const Operands &operands, Label *label)
{
    const bool leftInPlace = operands.mode >= 3;
    const unsigned onStack = leftInPlace ? 0 : operands.mode == 0 ? 2 : 1;
    const int effect = (label ? 0 : 1) - static_cast<int>(onStack);
    const Operation operation = offsetBy(first, operands.mode);
    if (label)
        emitJump(operation, *label, effect);
    else
        emit(operation, effect);
    if (operands.mode == 0)
        return;
    if (leftInPlace) {
        m_function->code.back().symbol = operands.left.asSymbol();
        emit(Operation::Fail, 0); // a slot for the second operand, never run
    }
    keep(operands.right);
    if (operands.right.isSymbol())
        m_function->code.back().symbol = operands.right.asSymbol();
    else
        m_function->code.back().bits = operands.right.bits();
}

void Compiler::compileBranch(Value form, bool sense, Label &label)
{
    if (form.isSymbol()) {
        emitJump(sense ? Operation::JumpIfTrueV : Operation::JumpIfNilV, label, 0);
        m_function->code.back().symbol = form.asSymbol();
        return;
    }
    if (!form.isCons()) {
        if (form.isTrue() == sense)
            emitJump(Operation::Jump, label, 0);
        return;
    }
    if (compileBranchOnList(form, sense, label))
        return;
    compile(form, Want::Value);
    emitJump(sense ? Operation::JumpIfTrue : Operation::JumpIfNil, label, -1);
}

bool Compiler::compileBranchOnList(Value form, bool sense, Label &label)
{
    m_machine.checkNativeStack();
    const Builtin *builtin = m_machine.builtinNamed(form.asCons()->car);
    const Value arguments = form.asCons()->cdr;
    const std::int64_t count = listLength(arguments);
    if (!builtin || count < 0)
        return false;
    if (builtin->specialForm) {
        const bool isAnd = builtin->specialForm->compile == &Compiler::compileAnd;
        if (!isAnd && builtin->specialForm->compile != &Compiler::compileOr)
            return false;
        compileJunction(arguments, !isAnd, sense, label);
        return true;
    }
    const std::optional<Primitive> primitive = m_machine.primitiveOf(form.asCons()->car.asSymbol());
    if (!primitive || !isComparison(*primitive) || count != 2)
        return false;
    const Operation first = offsetBy(sense ? Operation::IfEqualSS : Operation::UnlessEqualSS,
                                     OperandModes * indexOf(*primitive, Primitive::Equal));
    const Operands operands = prepareOperands(arguments.asCons()->car, arguments.asCons()->cdr.asCons()->car);
    emitPrimitive(first, operands, &label);
    return true;
}

// `and` stops at the first form that is false, `or` at the first that is true.
void Compiler::compileJunction(Value arguments, bool stopAt, bool sense, Label &label)
{
    Label skip;
    for (; arguments.isCons(); arguments = arguments.asCons()->cdr)
        compileBranch(arguments.asCons()->car, stopAt, sense == stopAt ? label : skip);
    if (sense != stopAt)
        emitJump(Operation::Jump, label, 0);
    bind(skip);
}

void Compiler::compileBody(Value forms, Want want)
{
    if (!forms.isCons())
        return compileConstant(Value::nil(), want);
    for (; forms.asCons()->cdr.isCons(); forms = forms.asCons()->cdr)
        compile(forms.asCons()->car, Want::Effect);
    compile(forms.asCons()->car, want);
}

void Compiler::compileConstant(Value value, Want want)
{
    if (want == Want::Value)
        emitConstant(value);
}

void Compiler::compileFailure(std::u16string_view message, Want want)
{
    const Value text = m_machine.string(message);
    keep(text);
    emit(Operation::Fail, want == Want::Value ? 1 : 0);
    m_function->code.back().bits = text.bits();
}

std::size_t Compiler::emit(Operation operation, int stackEffect)
{
    m_function->code.push_back({operation, 0, 0, {0}});
    m_function->lines.push_back(m_line);
    m_stackDepth = static_cast<std::uint32_t>(static_cast<int>(m_stackDepth) + stackEffect);
    m_function->stackNeed = std::max(m_function->stackNeed, m_stackDepth);
    return m_function->code.size() - 1;
}

void Compiler::emitConstant(Value value)
{
    keep(value);
    emit(Operation::Constant, 1);
    m_function->code.back().bits = value.bits();
}

void Compiler::emitSymbol(Operation operation, const Symbol *symbol, int stackEffect)
{
    emit(operation, stackEffect);
    m_function->code.back().symbol = const_cast<Symbol *>(symbol);
}

void Compiler::emitJump(Operation operation, Label &label, int stackEffect)
{
    const std::size_t at = emit(operation, stackEffect);
    if (label.bound)
        m_function->code[at].offset = static_cast<std::int32_t>(label.target) - static_cast<std::int32_t>(at);
    else
        label.uses.push_back(at);
}

void Compiler::bind(Label &label)
{
    label.target = m_function->code.size();
    label.bound = true;
    for (const std::size_t at : label.uses)
        m_function->code[at].offset = static_cast<std::int32_t>(label.target) - static_cast<std::int32_t>(at);
}

void Compiler::keep(Value constant)
{
    if (constant.isCons() || constant.isString() || constant.isObject())
        m_function->constants.push_back(constant);
}

} // namespace lisp
