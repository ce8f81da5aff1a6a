#pragma once

#include <windows.h>

// Leads what a loaded library calls by this name to another function of the same type, whatever library it imports the
// name from. A library that does not import it stays as it is. Imports are a table of addresses in the loaded file:
// https://learn.microsoft.com/windows/win32/debug/pe-format#the-idata-section
void replaceImport(HMODULE library, const char *name, void *replacement);
