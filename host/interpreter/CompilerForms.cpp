// Translation of the special forms.

#include "host/interpreter/Compiler.h"

#include <limits>

namespace lisp {

namespace {

Value first(Value list)
{
    return list.isCons() ? list.asCons()->car : Value::nil();
}

Value rest(Value list)
{
    return list.isCons() ? list.asCons()->cdr : Value::nil();
}

} // namespace

void Compiler::compileQuote(Value arguments, Want want)
{
    if (listLength(arguments) != 1)
        return compileFailure(arguments.isNil() ? u"too few arguments" : u"too many arguments", want);
    const Value quoted = first(arguments);
    // Compiled here, where the source lines are known; it may never be applied, which costs little.
    if (m_positions && m_machine.isLambda(quoted) && isParameterList(first(rest(quoted))))
        m_machine.compileLambda(quoted, m_positions);
    compileConstant(quoted, want);
}

void Compiler::compileFunctionForm(Value arguments, Want want)
{
    if (listLength(arguments) == 1 && m_machine.isLambda(first(arguments)))
        return compileLambda(rest(first(arguments)), want);
    compileQuote(arguments, want);
}

void Compiler::compileLambda(Value arguments, Want want)
{
    if (arguments.isNil())
        return compileFailure(u"too few arguments", want);
    if (!isParameterList(first(arguments)))
        return compileFailure(BadParameterList, want);
    Compiler inner(m_machine, m_positions);
    inner.m_line = m_line;
    compileConstant(Value::object(inner.compileFunction(nullptr, first(arguments), rest(arguments))), want);
}

void Compiler::compileSetq(Value arguments, Want want)
{
    if (arguments.isNil())
        return compileConstant(Value::nil(), want);
    while (arguments.isCons()) {
        const Value name = first(arguments);
        if (!name.isSymbol())
            return compileFailure(u"syntax error in setq: the name is not a symbol", want);
        if (rest(arguments).isNil())
            return compileFailure(u"too few arguments", want);
        compile(first(rest(arguments)), Want::Value);
        arguments = rest(rest(arguments));
        const bool leave = want == Want::Value && arguments.isNil();
        emitSymbol(leave ? Operation::Set : Operation::SetPop, name.asSymbol(), leave ? 0 : -1);
    }
}

void Compiler::compileIf(Value arguments, Want want)
{
    const std::int64_t count = listLength(arguments);
    if (count < 2 || count > 3)
        return compileFailure(count < 2 ? u"too few arguments" : u"too many arguments", want);
    Label otherwise, end;
    compileBranch(first(arguments), false, otherwise);
    compile(first(rest(arguments)), want);
    if (want == Want::Effect && count == 2) {
        bind(otherwise);
        return;
    }
    emitJump(Operation::Jump, end, want == Want::Value ? -1 : 0);
    bind(otherwise);
    compile(first(rest(rest(arguments))), want);
    bind(end);
}

void Compiler::compileCond(Value arguments, Want want)
{
    Label end;
    for (; arguments.isCons(); arguments = rest(arguments)) {
        const Value clause = first(arguments);
        if (!clause.isCons() || listLength(clause) < 0)
            return compileFailure(u"malformed clause in cond", want), bind(end);
        if (rest(clause).isCons()) {
            Label next;
            compileBranch(first(clause), false, next);
            compileBody(rest(clause), want);
            emitJump(Operation::Jump, end, want == Want::Value ? -1 : 0);
            bind(next);
        } else if (want == Want::Value) {
            compile(first(clause), Want::Value);
            emitJump(Operation::KeepIfTrue, end, -1);
        } else {
            compileBranch(first(clause), true, end);
        }
    }
    compileConstant(Value::nil(), want);
    bind(end);
}

void Compiler::compileAnd(Value arguments, Want want)
{
    compileJunctionValue(arguments, false, want);
}

void Compiler::compileOr(Value arguments, Want want)
{
    compileJunctionValue(arguments, true, want);
}

// T or nil, never the value of the form that decided.
void Compiler::compileJunctionValue(Value arguments, bool stopAt, Want want)
{
    Label stopped, end;
    compileJunction(arguments, stopAt, stopAt, stopped);
    if (want == Want::Value) {
        emitConstant(m_machine.boolean(!stopAt));
        emitJump(Operation::Jump, end, -1);
    }
    bind(stopped);
    compileConstant(m_machine.boolean(stopAt), want);
    bind(end);
}

void Compiler::compileProgn(Value arguments, Want want)
{
    compileBody(arguments, want);
}

void Compiler::compileWhile(Value arguments, Want want)
{
    if (arguments.isNil())
        return compileFailure(u"too few arguments", want);
    compileConstant(Value::nil(), want);
    Label top, end;
    bind(top);
    compileBranch(first(arguments), false, end);
    if (rest(arguments).isCons()) {
        if (want == Want::Value)
            emit(Operation::Pop, -1);
        compileBody(rest(arguments), want);
    }
    emitJump(Operation::Loop, top, 0);
    bind(end);
}

void Compiler::compileRepeat(Value arguments, Want want)
{
    if (arguments.isNil())
        return compileFailure(u"too few arguments", want);
    compileConstant(Value::nil(), want);
    compile(first(arguments), Want::Value);
    emit(Operation::RepeatStart, 0);
    Label top, end;
    bind(top);
    emitJump(Operation::RepeatNext, end, 0);
    compileBody(rest(arguments), want);
    if (want == Want::Value)
        emit(Operation::StoreBelow, -1);
    emitJump(Operation::Loop, top, -1);
    bind(end);
}

void Compiler::compileForeach(Value arguments, Want want)
{
    if (listLength(arguments) < 2)
        return compileFailure(u"too few arguments", want);
    const Value name = first(arguments);
    if (!name.isSymbol())
        return compileFailure(u"bad argument type: symbolp in foreach", want);
    compileConstant(Value::nil(), want);
    compile(first(rest(arguments)), Want::Value);
    emitSymbol(Operation::ForeachStart, name.asSymbol(), 0);
    Label top, end;
    bind(top);
    emitJump(Operation::ForeachNext, end, 0);
    m_function->code.back().symbol = name.asSymbol();
    compileBody(rest(rest(arguments)), want);
    if (want == Want::Value)
        emit(Operation::StoreBelow, -1);
    emitJump(Operation::Loop, top, -1);
    bind(end);
}

void Compiler::compileDefun(Value arguments, Want want)
{
    if (listLength(arguments) < 2)
        return compileFailure(u"too few arguments", want);
    const Value name = first(arguments);
    if (!name.isSymbol())
        return compileFailure(u"bad argument type: symbolp in defun", want);
    if (!isParameterList(first(rest(arguments))))
        return compileFailure(BadParameterList, want);
    Compiler inner(m_machine, m_positions);
    inner.m_line = m_line;
    emitConstant(Value::object(inner.compileFunction(name.asSymbol(), first(rest(arguments)), rest(rest(arguments)))));
    emitSymbol(Operation::SetPop, name.asSymbol(), -1);
    compileConstant(name, want);
}

void Compiler::compileDefunQ(Value arguments, Want want)
{
    if (listLength(arguments) < 2)
        return compileFailure(u"too few arguments", want);
    const Value name = first(arguments);
    if (!name.isSymbol())
        return compileFailure(u"bad argument type: symbolp in defun-q", want);
    emitConstant(rest(arguments));
    emitSymbol(Operation::SetPop, name.asSymbol(), -1);
    compileConstant(name, want);
}

// The form's own function, called with the arguments as they stand.
void Compiler::compileUnevaluatedCall(std::u16string_view name, Value arguments, Want want)
{
    const std::int64_t count = listLength(arguments);
    if (count > std::numeric_limits<std::uint16_t>::max())
        return compileFailure(u"too many arguments", want);
    for (; arguments.isCons(); arguments = rest(arguments))
        emitConstant(first(arguments));
    emitSymbol(Operation::Call, m_machine.intern(name), 1 - static_cast<int>(count));
    m_function->code.back().count = static_cast<std::uint16_t>(count);
    if (want == Want::Effect)
        emit(Operation::Pop, -1);
}

void Compiler::compileTrace(Value arguments, Want want)
{
    compileUnevaluatedCall(u"trace", arguments, want);
}

void Compiler::compileUntrace(Value arguments, Want want)
{
    compileUnevaluatedCall(u"untrace", arguments, want);
}

} // namespace lisp
