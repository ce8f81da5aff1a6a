// Operations of the LISP interface that need a drawing. This host has none of them yet: each answers with the failure
// that a module must expect from a host without the service, and pretends nothing.

#include "host/kernel/SubstituteLispHost.h"
#include "lisp/LispStatus.h"

int SubstituteLispHost::regApp(const char16_t *)
{
    return StatusError;
}

resbuf *SubstituteLispHost::entGet(const LispName *, bool)
{
    return nullptr;
}

resbuf *SubstituteLispHost::entGetX(const LispName *, const resbuf *, int)
{
    return nullptr;
}

int SubstituteLispHost::entMod(const resbuf *)
{
    return StatusError;
}

resbuf *SubstituteLispHost::tblSearch(const char16_t *, const char16_t *, int)
{
    return nullptr;
}

int SubstituteLispHost::menuCmd(const char16_t *)
{
    return StatusError;
}

int SubstituteLispHost::dragSelection(const LispName *, const char16_t *, int, DragTransform, LispPoint *)
{
    return StatusError;
}

void SubstituteLispHost::setTabletMode(int) {}

int SubstituteLispHost::compileShape(const char16_t *, const char16_t *)
{
    return StatusError;
}

int SubstituteLispHost::getEntityExtents(const LispName *, LispPoint *, LispPoint *)
{
    return StatusError;
}

resbuf *SubstituteLispHost::dictSearch(const LispName *, const char16_t *, int)
{
    return nullptr;
}

int SubstituteLispHost::namedObjDict(LispName *)
{
    return StatusError;
}
