// What a call from LISP costs: built-ins, LISP functions, functions of the module. Each iteration is 1000 calls.

#include "benchmarks/Workplace.h"

namespace {

void callOf(benchmark::State &state, const char16_t *call)
{
    Workplace workplace;
    workplace.load(u"(defun lisp-function () \"LISP function\")");
    workplace.run(state, call);
}

} // namespace

// Both give a string that they make anew.
BENCHMARK_CAPTURE(callOf, builtinGivingAString, u"(ver)");
BENCHMARK_CAPTURE(callOf, moduleGivingAString, u"(acet-util-ver)");
// Both give nil and look at nothing.
BENCHMARK_CAPTURE(callOf, builtinGivingNil, u"(textscr)");
BENCHMARK_CAPTURE(callOf, moduleGivingNil, u"(vl_catch_all_error_p)");
BENCHMARK_CAPTURE(callOf, lispFunction, u"(lisp-function)");
BENCHMARK_CAPTURE(callOf, moduleComparingStrings, u"(acet-str-equal \"abc\" \"ABC\")");
BENCHMARK_CAPTURE(callOf, builtinComparingStrings, u"(wcmatch \"abc\" \"ABC\")");
