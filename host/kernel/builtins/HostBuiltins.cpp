#include "host/kernel/builtins/HostBuiltins.h"

void defineHostBuiltins(lisp::Machine &machine)
{
    for (const auto family :
         {commandBuiltins(), dictionaryBuiltins(), entityBuiltins(), geometryBuiltins(), graphicsBuiltins(),
          inputBuiltins(), menuBuiltins(), nestedSelectionBuiltins(), registryBuiltins(), selectionBuiltins(),
          tableBuiltins(), variableBuiltins(), windowBuiltins()})
        lisp::defineBuiltins(machine, family);
}
