#pragma once

#include "host/kernel/ArgumentList.h"

#include <cstdarg>

// Nodes from the arguments of a list-building call: type code and value in turn, ended by 0 or 5000. Null when the
// arguments are empty.
resbuf *nodesFromArguments(NodePool &pool, CallFrame &frame, TextWidth width, int firstCode, std::va_list arguments);

// Sets the node's value from the address of a number, point or name; a string is taken over as it is.
void storeValue(resbuf &node, void *value);
