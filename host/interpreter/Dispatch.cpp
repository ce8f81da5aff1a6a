// The instruction loop. Written for speed: one indirect jump from each instruction to the next, the stack pointer and
// the instruction pointer in registers. Whatever may raise an error or collect garbage first stores both (SYNC).

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Machine.h"
#include "host/interpreter/Printer.h"

#include <utility>

#pragma GCC diagnostic ignored "-Wpedantic" // labels as values, which GCC and clang both have

namespace lisp {

namespace {

std::int32_t wrapped(std::uint32_t number)
{
    return static_cast<std::int32_t>(number);
}

std::uint32_t bitsOf(Value integer)
{
    return static_cast<std::uint32_t>(integer.asInteger());
}

} // namespace

// NOLINTBEGIN(bugprone-macro-parentheses): the macros take operators and names
Value Machine::dispatch(std::size_t entryDepth)
{
    static const void *const labels[] = {
#define X(name) &&do##name,
        LISP_PLAIN_INSTRUCTIONS(X)
#undef X
#define X(name, text) &&do##name##SS, &&do##name##SV, &&do##name##SK, &&do##name##VV, &&do##name##VK,
            LISP_ARITHMETIC_PRIMITIVES(X) LISP_COMPARISON_PRIMITIVES(X)
#undef X
#define X(name, text)                                                                                                  \
    &&doUnless##name##SS, &&doUnless##name##SV, &&doUnless##name##SK, &&doUnless##name##VV, &&doUnless##name##VK,
                LISP_COMPARISON_PRIMITIVES(X)
#undef X
#define X(name, text) &&doIf##name##SS, &&doIf##name##SV, &&doIf##name##SK, &&doIf##name##VV, &&doIf##name##VK,
                    LISP_COMPARISON_PRIMITIVES(X)
#undef X
#define X(name, text) &&do##name##S, &&do##name##V,
                        LISP_UNARY_PRIMITIVES(X) LISP_NOT_PRIMITIVES(X)
#undef X
    };
    static_assert(std::size(labels) == static_cast<std::size_t>(Operation::Count));

    Frame *frame = &m_frames[m_depth - 1];
    const Instruction *pc = frame->next;
    Value *sp = m_top;
    const PrimitiveEntry *const primitives = m_primitives.data();
    const Value truth = m_true;

#define NEXT goto *labels[static_cast<std::size_t>(pc->operation)]
#define SYNC(after) (frame->next = (after), m_top = sp)
#define UNCHANGED(name)                                                                                                \
    (primitives[static_cast<std::size_t>(Primitive::name)].symbol->value ==                                            \
     primitives[static_cast<std::size_t>(Primitive::name)].function)

    NEXT;

doConstant:
    *sp++ = pc->value();
    ++pc;
    NEXT;
doVariable:
    *sp++ = pc->symbol->value;
    ++pc;
    NEXT;
doPop:
    --sp;
    ++pc;
    NEXT;
doSet:
    pc->symbol->value = sp[-1];
    ++pc;
    NEXT;
doSetPop:
    pc->symbol->value = *--sp;
    ++pc;
    NEXT;
doJump:
    pc += pc->offset;
    NEXT;
doLoop:
    if (--m_countdown <= 0) [[unlikely]] {
        SYNC(pc + 1);
        safePoint();
    }
    pc += pc->offset;
    NEXT;
doJumpIfNil:
    pc += (--sp)->isNil() ? pc->offset : 1;
    NEXT;
doJumpIfTrue:
    pc += (--sp)->isTrue() ? pc->offset : 1;
    NEXT;
doJumpIfNilV:
    pc += pc->symbol->value.isNil() ? pc->offset : 1;
    NEXT;
doJumpIfTrueV:
    pc += pc->symbol->value.isTrue() ? pc->offset : 1;
    NEXT;
doKeepIfTrue:
    if (sp[-1].isTrue()) {
        pc += pc->offset;
    } else {
        --sp;
        ++pc;
    }
    NEXT;

doCall : {
    const Value function = pc->symbol->value;
    const std::uint32_t count = pc->count;
    ++pc;
    SYNC(pc);
    if (function.isObject()) [[likely]] {
        Object *object = function.asObject();
        if (object->kind == ObjectKind::Function) {
            enter(static_cast<Function *>(object), count);
            goto entered;
        }
        if (object->kind == ObjectKind::Builtin) {
            const auto &builtin = *static_cast<const Builtin *>(object);
            if (count >= builtin.minimum && count <= builtin.maximum && builtin.handler) [[likely]] {
                sp -= count;
                const Value result = builtin.handler(*this, Args(sp, count));
                *sp++ = result;
                NEXT;
            }
        }
        if (object->kind == ObjectKind::External) {
            const Value result = callExternal(*static_cast<const External *>(object), count);
            sp -= count;
            *sp++ = result;
            NEXT;
        }
    }
    Object *object = resolveFunction(Value::symbol(pc[-1].symbol));
    if (object->kind == ObjectKind::Function) {
        enter(static_cast<Function *>(object), count);
        goto entered;
    }
    const Value result = applyToStack(Value::object(object), count);
    sp -= count;
    *sp++ = result;
    NEXT;
}
doCallValue : {
    const std::uint32_t count = pc->count;
    ++pc;
    SYNC(pc);
    Object *object = resolveFunction(*(sp - count - 1));
    // The function stays below its arguments until the frame or the built-in is done with it.
    const Value result = applyToStack(Value::object(object), count);
    sp -= count + 1;
    *sp++ = result;
    NEXT;
}
entered:
    frame = &m_frames[m_depth - 1];
    pc = frame->next;
    sp = m_top;
    if (--m_countdown <= 0) [[unlikely]]
        safePoint();
    NEXT;
doReturn : {
    const Value result = sp[-1];
    leaveFrame();
    if (m_depth == entryDepth)
        return result;
    frame = &m_frames[m_depth - 1];
    pc = frame->next;
    sp = m_top;
    *sp++ = result;
    NEXT;
}

doRepeatStart:
    SYNC(pc + 1);
    if (!sp[-1].isInteger())
        badArgument(u"fixnump:", sp[-1]);
    ++pc;
    NEXT;
doRepeatNext:
    if (const std::int32_t left = sp[-1].asInteger(); left > 0) {
        sp[-1] = Value::integer(left - 1);
        ++pc;
    } else {
        --sp;
        pc += pc->offset;
    }
    NEXT;
doForeachStart:
    SYNC(pc + 1);
    if (!sp[-1].isList())
        badArgument(u"listp", sp[-1]);
    m_bindings.push_back({pc->symbol, pc->symbol->value});
    ++pc;
    NEXT;
doForeachNext:
    if (const Value rest = sp[-1]; rest.isCons()) {
        pc->symbol->value = rest.asCons()->car;
        sp[-1] = rest.asCons()->cdr;
        ++pc;
    } else {
        SYNC(pc + 1);
        if (rest.isTrue())
            badArgument(u"listp", rest);
        restoreBindings(m_bindings.size() - 1);
        --sp;
        pc += pc->offset;
    }
    NEXT;
doStoreBelow:
    sp[-3] = sp[-1];
    --sp;
    ++pc;
    NEXT;
doFail:
    SYNC(pc + 1);
    fail(pc->value().asString()->view());

doCons:
    sp -= 2;
    if (UNCHANGED(Cons)) [[likely]] {
        *sp = m_heap.cons(sp[0], sp[1]);
    } else {
        sp += 2;
        SYNC(pc + 1);
        sp -= 2;
        *sp = applyToStack(Value::symbol(primitives[static_cast<std::size_t>(Primitive::Cons)].symbol), 2);
    }
    ++sp;
    ++pc;
    NEXT;

// Where the operands of a binary primitive are; `after` is the next instruction.
#define OPERANDS_SS                                                                                                    \
    const Value b = sp[-1], a = sp[-2];                                                                                \
    sp -= 2;                                                                                                           \
    const Instruction *const after = pc + 1;
#define OPERANDS_SV                                                                                                    \
    const Value b = pc->symbol->value, a = sp[-1];                                                                     \
    sp -= 1;                                                                                                           \
    const Instruction *const after = pc + 1;
#define OPERANDS_SK                                                                                                    \
    const Value b = pc->value(), a = sp[-1];                                                                           \
    sp -= 1;                                                                                                           \
    const Instruction *const after = pc + 1;
#define OPERANDS_VV                                                                                                    \
    const Value b = pc[1].symbol->value, a = pc->symbol->value;                                                        \
    const Instruction *const after = pc + 2;
#define OPERANDS_VK                                                                                                    \
    const Value b = pc[1].value(), a = pc->symbol->value;                                                              \
    const Instruction *const after = pc + 2;

#define CALL_PRIMITIVE(name, ...) (SYNC(after), callPrimitive(Primitive::name, sp, {__VA_ARGS__}))

#define ARITHMETIC(name, operator, mode)                                                                               \
    do                                                                                                                 \
        ##name##mode:                                                                                                  \
        {                                                                                                              \
            OPERANDS_##mode Value result;                                                                              \
            if (a.isInteger() && b.isInteger() && UNCHANGED(name)) [[likely]]                                          \
                result = Value::integer(wrapped(bitsOf(a) operator bitsOf(b)));                                        \
            else if (a.isReal() && b.isReal() && UNCHANGED(name))                                                      \
                result = Value::real(a.asReal() operator b.asReal());                                                  \
            else                                                                                                       \
                result = CALL_PRIMITIVE(name, a, b);                                                                   \
            *sp++ = result;                                                                                            \
            pc = after;                                                                                                \
            NEXT;                                                                                                      \
        }

// Sets `holds`.
#define COMPARE(name, operator)                                                                                        \
    bool holds;                                                                                                        \
    if (a.isInteger() && b.isInteger() && UNCHANGED(name)) [[likely]]                                                  \
        holds = a.asInteger() operator b.asInteger();                                                                  \
    else if (a.isReal() && b.isReal() && UNCHANGED(name))                                                              \
        holds = a.asReal() operator b.asReal();                                                                        \
    else                                                                                                               \
        holds = CALL_PRIMITIVE(name, a, b).isTrue();
// As COMPARE for eq, which knows symbols and lists by their identity.
#define COMPARE_SAME(name, operator)                                                                                   \
    bool holds;                                                                                                        \
    if ((a.isSymbol() || a.isList()) && UNCHANGED(name)) [[likely]]                                                    \
        holds = a == b;                                                                                                \
    else                                                                                                               \
        holds = CALL_PRIMITIVE(name, a, b).isTrue();

#define COMPARISON(name, operator, mode, compare)                                                                      \
    do                                                                                                                 \
        ##name##mode:                                                                                                  \
        {                                                                                                              \
            OPERANDS_##mode compare(name, operator) *sp++ = holds ? truth : Value::nil();                              \
            pc = after;                                                                                                \
            NEXT;                                                                                                      \
        }                                                                                                              \
    doUnless##name##mode:                                                                                              \
    {                                                                                                                  \
        OPERANDS_##mode compare(name, operator) pc = holds ? after : pc + pc->offset;                                  \
        NEXT;                                                                                                          \
    }                                                                                                                  \
    doIf##name##mode:                                                                                                  \
    {                                                                                                                  \
        OPERANDS_##mode compare(name, operator) pc = holds ? pc + pc->offset : after;                                  \
        NEXT;                                                                                                          \
    }

#define ALL_MODES(macro, name, ...)                                                                                    \
    macro(name, __VA_ARGS__, SS) macro(name, __VA_ARGS__, SV) macro(name, __VA_ARGS__, SK)                             \
        macro(name, __VA_ARGS__, VV) macro(name, __VA_ARGS__, VK)
#define NUMBER_COMPARISON(name, operator, mode) COMPARISON(name, operator, mode, COMPARE)
#define SAME_COMPARISON(name, operator, mode) COMPARISON(name, operator, mode, COMPARE_SAME)

    ALL_MODES(ARITHMETIC, Add, +)
    ALL_MODES(ARITHMETIC, Subtract, -)
    ALL_MODES(ARITHMETIC, Multiply, *)
    ALL_MODES(NUMBER_COMPARISON, Equal, ==)
    ALL_MODES(NUMBER_COMPARISON, NotEqual, !=)
    ALL_MODES(NUMBER_COMPARISON, Less, <)
    ALL_MODES(NUMBER_COMPARISON, LessEqual, <=)
    ALL_MODES(NUMBER_COMPARISON, Greater, >)
    ALL_MODES(NUMBER_COMPARISON, GreaterEqual, >=)
    ALL_MODES(SAME_COMPARISON, Same, ==)

#define UNARY(name, applies, outcome)                                                                                  \
    do                                                                                                                 \
        ##name##S:                                                                                                     \
        {                                                                                                              \
            const Value a = *--sp;                                                                                     \
            const Instruction *const after = pc + 1;                                                                   \
            *sp = (applies) && UNCHANGED(name) ? (outcome) : CALL_PRIMITIVE(name, a);                                  \
            ++sp;                                                                                                      \
            pc = after;                                                                                                \
            NEXT;                                                                                                      \
        }                                                                                                              \
    do                                                                                                                 \
        ##name##V:                                                                                                     \
        {                                                                                                              \
            const Value a = pc->symbol->value;                                                                         \
            const Instruction *const after = pc + 1;                                                                   \
            *sp = (applies) && UNCHANGED(name) ? (outcome) : CALL_PRIMITIVE(name, a);                                  \
            ++sp;                                                                                                      \
            pc = after;                                                                                                \
            NEXT;                                                                                                      \
        }

    UNARY(Car, a.isCons(), a.asCons()->car)
    UNARY(Cdr, a.isCons(), a.asCons()->cdr)
    UNARY(Cadr, a.isCons() && a.asCons()->cdr.isCons(), a.asCons()->cdr.asCons()->car)
    UNARY(Increment, a.isInteger(), Value::integer(wrapped(bitsOf(a) + 1)))
    UNARY(Decrement, a.isInteger(), Value::integer(wrapped(bitsOf(a) - 1)))
    UNARY(Not, true, a.isNil() ? truth : Value::nil())
    UNARY(Null, true, a.isNil() ? truth : Value::nil())
}
// NOLINTEND(bugprone-macro-parentheses)

} // namespace lisp
