#include "host/kernel/builtins/HostBuiltins.h"

void defineHostBuiltins(lisp::Machine &machine)
{
    for (const auto family : {commandBuiltins(), inputBuiltins(), registryBuiltins(), variableBuiltins(), windowBuiltins()})
        lisp::defineBuiltins(machine, family);
}
