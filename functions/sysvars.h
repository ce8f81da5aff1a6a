#pragma once

int acetVarSetvar(); // acet-var-setvar
int acetVarGetvar(); // acet-var-getvar
