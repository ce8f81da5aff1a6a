// Operations of the LISP interface whose service this host does not have: menus, a tablet, compiled shapes. Each
// answers with the failure that a module must expect, and pretends nothing.

#include "host/kernel/SubstituteLispHost.h"
#include "lisp/LispStatus.h"

int SubstituteLispHost::menuCmd(const char16_t *)
{
    return StatusError;
}

void SubstituteLispHost::setTabletMode(int) {}

int SubstituteLispHost::compileShape(const char16_t *, const char16_t *)
{
    return StatusError;
}
