#include "functions/pending.h"

#include "lisp/CommandLine.h"
#include "lisp/LispStatus.h"

int notAvailableYet()
{
    failWith("\nError: not available yet.");
    return StatusNormal;
}
