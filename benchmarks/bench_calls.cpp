// What a call from LISP costs: built-ins, LISP functions, functions of the module. Each iteration is 1000 calls.

#include "host/kernel/Host.h"

#include <benchmark/benchmark.h>

#include <QString>

namespace {

// A document with the module loaded, and what the programs below use.
class Workplace
{
public:
    Workplace() : m_document(m_host.documents().open())
    {
        m_host.modules().load(QStringLiteral(MODULE_FILE));
        m_document.machine().load(u"(defun lisp-function () \"LISP function\")", u"");
    }
    void run(benchmark::State &state, const char16_t *call)
    {
        const std::u16string program = u"(defun work () (repeat 1000 " + std::u16string(call) + u"))";
        lisp::Machine &machine = m_document.machine();
        machine.load(program, u"");
        const lisp::Value work = machine.intern(u"work")->value;
        for (auto _ : state)
            benchmark::DoNotOptimize(machine.call(work, {}));
        state.SetItemsProcessed(state.iterations() * 1000);
    }

private:
    Host m_host;
    Document &m_document;
};

void callOf(benchmark::State &state, const char16_t *call)
{
    Workplace workplace;
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
