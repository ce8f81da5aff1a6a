#pragma once

#include "host/kernel/Host.h"

#include <benchmark/benchmark.h>

#include <QString>

// A document with the module loaded, in which calls are measured.
class Workplace
{
public:
    Workplace() : m_document(m_host.documents().open()) { m_host.modules().load(QStringLiteral(MODULE_FILE)); }

    HostServices &services() { return m_host.services(); }
    lisp::Machine &machine() { return m_document.machine(); }
    void load(const std::u16string &program) { m_document.machine().load(program, u""); }

    // Each iteration is 1000 calls.
    void run(benchmark::State &state, const std::u16string &call)
    {
        const std::u16string program = u"(defun work () (repeat 1000 " + call + u"))";
        lisp::Machine &machine = m_document.machine();
        load(program);
        const lisp::Value work = machine.intern(u"work")->value;
        for (auto _ : state)
            benchmark::DoNotOptimize(machine.call(work, {}));
        state.SetItemsProcessed(state.iterations() * 1000);
    }

private:
    Host m_host;
    Document &m_document;
};
