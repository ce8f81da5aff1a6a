// The special forms: what they are called, what they do, how they are translated.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Compiler.h"

#include <algorithm>

namespace lisp {

namespace {

Value applyAnd(Machine &machine, Args values)
{
    return machine.boolean(std::all_of(values.begin(), values.end(), [](Value value) { return value.isTrue(); }));
}

Value applyOr(Machine &machine, Args values)
{
    return machine.boolean(std::any_of(values.begin(), values.end(), [](Value value) { return value.isTrue(); }));
}

Value applyProgn(Machine &, Args values)
{
    return values.count() == 0 ? Value::nil() : values[values.count() - 1];
}

Value applyTrace(Machine &machine, Args names)
{
    for (std::uint32_t i = 0; i < names.count(); ++i)
        machine.trace(names.symbol(i));
    return names.count() == 0 ? Value::nil() : names[names.count() - 1];
}

Value applyUntrace(Machine &machine, Args names)
{
    for (std::uint32_t i = 0; i < names.count(); ++i)
        machine.untrace(names.symbol(i));
    return names.count() == 0 ? Value::nil() : names[names.count() - 1];
}

constexpr SpecialForm forms[] = {
    {"quote", "(quote EXPRESSION)", "Gives the expression itself, unevaluated.", &Compiler::compileQuote, nullptr},
    {"function", "(function FUNCTION)", "Gives the symbol or the compiled lambda expression.",
     &Compiler::compileFunctionForm, nullptr},
    {"lambda", "(lambda PARAMETERS [EXPRESSION ...])", "Gives a function without a name.", &Compiler::compileLambda,
     nullptr},
    {"setq", "(setq [SYMBOL VALUE ...])", "Sets each symbol to the value after it; gives the last value.",
     &Compiler::compileSetq, nullptr},
    {"if", "(if TEST THEN [ELSE])", "Evaluates THEN if the test is not nil, otherwise ELSE.", &Compiler::compileIf,
     nullptr},
    {"cond", "(cond [CLAUSE ...])",
     "Evaluates the expressions of the first clause (TEST EXPRESSION ...) whose test is not nil.",
     &Compiler::compileCond, nullptr},
    {"and", "(and [EXPRESSION ...])", "Gives nil at the first expression that is nil, otherwise T.",
     &Compiler::compileAnd, applyAnd},
    {"or", "(or [EXPRESSION ...])", "Gives T at the first expression that is not nil, otherwise nil.",
     &Compiler::compileOr, applyOr},
    {"progn", "(progn [EXPRESSION ...])", "Evaluates the expressions in order; gives the last value.",
     &Compiler::compileProgn, applyProgn},
    {"while", "(while TEST [EXPRESSION ...])", "Evaluates the expressions as long as the test is not nil.",
     &Compiler::compileWhile, nullptr},
    {"repeat", "(repeat COUNT [EXPRESSION ...])", "Evaluates the expressions COUNT times.", &Compiler::compileRepeat,
     nullptr},
    {"foreach", "(foreach SYMBOL LIST [EXPRESSION ...])",
     "Evaluates the expressions with the symbol bound to each item of the list.", &Compiler::compileForeach, nullptr},
    {"defun", "(defun NAME PARAMETERS [EXPRESSION ...])", "Defines a function; parameters / locals.",
     &Compiler::compileDefun, nullptr},
    {"defun-q", "(defun-q NAME PARAMETERS [EXPRESSION ...])", "Defines a function that is kept as a list.",
     &Compiler::compileDefunQ, nullptr},
    {"trace", "(trace [FUNCTION ...])", "Shows the calls of the functions and what they give, until untrace.",
     &Compiler::compileTrace, applyTrace},
    {"untrace", "(untrace [FUNCTION ...])", "Ends what trace began.", &Compiler::compileUntrace, applyUntrace},
};

} // namespace

std::span<const SpecialForm> specialForms()
{
    return forms;
}

} // namespace lisp
