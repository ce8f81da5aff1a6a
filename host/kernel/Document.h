#pragma once

#include "host/interpreter/Machine.h"
#include "host/kernel/SubstituteLispHost.h"
#include "sdk/fx/CFxDocument.h"

// An open document with its own LISP namespace.
class Document final : public CFxDocument
{
public:
    explicit Document(HostServices &services) : m_lispHost(m_machine, services) {}

    LispHost *lispHost() override { return &m_lispHost; }
    lisp::Machine &machine() { return m_machine; }

private:
    lisp::Machine m_machine;
    SubstituteLispHost m_lispHost;
};
