#include "host/kernel/Document.h"

#include "host/kernel/builtins/HostBuiltins.h"

Document::Document(HostServices &services) : m_services(services), m_lispHost(m_machine, services)
{
    m_machine.setOwner(this);
    defineHostBuiltins(m_machine);
}

Document::~Document() = default;
