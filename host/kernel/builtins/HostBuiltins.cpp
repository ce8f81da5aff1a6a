#include "host/kernel/builtins/HostBuiltins.h"

void defineHostBuiltins(lisp::Machine &machine)
{
    for (const auto family : {inputBuiltins(), registryBuiltins(), variableBuiltins(), windowBuiltins()})
        lisp::defineBuiltins(machine, family);
}
