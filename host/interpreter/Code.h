#pragma once

#include "host/interpreter/Objects.h"

#include <cstdint>
#include <string>
#include <vector>

// The instruction set of the machine. Code is an array of 16-byte slots. Operands come from the value stack (S), from a
// symbol's value cell (V) or from a constant (K); a second operand that is not on the stack stands in the next slot
// when the first one takes this slot's operand.
namespace lisp {

// Functions that the compiler turns into instructions of their own. Each such instruction looks first whether the
// symbol still means the built-in function and otherwise calls what it means now.
#define LISP_ARITHMETIC_PRIMITIVES(X) X(Add, "+") X(Subtract, "-") X(Multiply, "*")
#define LISP_COMPARISON_PRIMITIVES(X)                                                                                  \
    X(Equal, "=")                                                                                                      \
    X(NotEqual, "/=")                                                                                                  \
    X(Less, "<")                                                                                                       \
    X(LessEqual, "<=")                                                                                                 \
    X(Greater, ">")                                                                                                    \
    X(GreaterEqual, ">=")                                                                                              \
    X(Same, "eq")
#define LISP_UNARY_PRIMITIVES(X) X(Car, "car") X(Cdr, "cdr") X(Cadr, "cadr") X(Increment, "1+") X(Decrement, "1-")
#define LISP_NOT_PRIMITIVES(X) X(Not, "not") X(Null, "null")

enum class Primitive : std::uint16_t {
#define X(name, text) name,
    LISP_ARITHMETIC_PRIMITIVES(X) LISP_COMPARISON_PRIMITIVES(X) LISP_UNARY_PRIMITIVES(X) LISP_NOT_PRIMITIVES(X)
#undef X
        Cons,
    Count
};

// Plain instructions: operand and effect on the stack in brackets.
#define LISP_PLAIN_INSTRUCTIONS(X)                                                                                     \
    X(Constant)     /* value            [ - value ] */                                                                 \
    X(Variable)     /* symbol           [ - value ] */                                                                 \
    X(Pop)          /*                  [ value - ] */                                                                 \
    X(Set)          /* symbol           [ value - value ] */                                                           \
    X(SetPop)       /* symbol           [ value - ] */                                                                 \
    X(Jump)         /* offset           [ - ] */                                                                       \
    X(Loop)         /* offset           [ - ] a jump backwards, and a safe point */                                    \
    X(JumpIfNil)    /* offset           [ value - ] */                                                                 \
    X(JumpIfTrue)   /* offset           [ value - ] */                                                                 \
    X(JumpIfNilV)   /* symbol, offset   [ - ] */                                                                       \
    X(JumpIfTrueV)  /* symbol, offset   [ - ] */                                                                       \
    X(KeepIfTrue)   /* offset           [ value - value ] jumps; [ value - ] goes on */                                \
    X(Call)         /* symbol, count    [ arguments - value ] */                                                       \
    X(CallValue)    /* count            [ function arguments - value ] */                                              \
    X(Return)       /*                  [ value - ] */                                                                 \
    X(RepeatStart)  /*                  [ count - counter ] checks the type */                                         \
    X(RepeatNext)   /* offset           [ counter - counter ] or jumps [ counter - ] when it is used up */             \
    X(ForeachStart) /* symbol           [ list - list ] checks the type, saves the variable */                         \
    X(ForeachNext)  /* symbol, offset   [ list - rest ] or jumps [ list - ] and restores at the end */                 \
    X(StoreBelow)   /*                  [ old counter value - value counter ] the result of a loop so far */           \
    X(Fail)         /* message          [ - value ] raises an error for malformed code that is reached */              \
    X(Cons)         /*                  [ car cdr - cons ] */

enum class Operation : std::uint16_t {
#define X(name) name,
    LISP_PLAIN_INSTRUCTIONS(X)
#undef X
#define X(name, text) name##SS, name##SV, name##SK, name##VV, name##VK,
        LISP_ARITHMETIC_PRIMITIVES(X) LISP_COMPARISON_PRIMITIVES(X)
#undef X
// Followed by a jump to `offset` unless the comparison holds.
#define X(name, text) Unless##name##SS, Unless##name##SV, Unless##name##SK, Unless##name##VV, Unless##name##VK,
            LISP_COMPARISON_PRIMITIVES(X)
#undef X
// Followed by a jump to `offset` if the comparison holds.
#define X(name, text) If##name##SS, If##name##SV, If##name##SK, If##name##VV, If##name##VK,
                LISP_COMPARISON_PRIMITIVES(X)
#undef X
#define X(name, text) name##S, name##V,
                    LISP_UNARY_PRIMITIVES(X) LISP_NOT_PRIMITIVES(X)
#undef X
                        Count
};

struct Instruction
{
    Operation operation;
    std::uint16_t count = 0; // arguments of a call
    std::int32_t offset = 0; // of a jump, in slots from this one
    union {
        std::uint64_t bits = 0;
        Symbol *symbol;
    };

    Value value() const { return Value::fromBits(bits); }
};
static_assert(sizeof(Instruction) == 16);

// A compiled function, lambda or top-level form.
struct Function : Object
{
    Function() : Object(ObjectKind::Function) {}

    std::vector<Instruction> code;
    std::vector<std::uint32_t> lines; // source line of each instruction; 0: unknown
    std::vector<Value> constants;     // what the code refers to, for the collector
    std::vector<Symbol *> variables;  // parameters, then locals
    std::uint32_t parameterCount = 0;
    std::uint32_t stackNeed = 0; // values that a call needs above its arguments
    const Symbol *name = nullptr;
    const std::u16string *file = nullptr; // owned by the machine's list of sources; null: not from a file
};

} // namespace lisp
