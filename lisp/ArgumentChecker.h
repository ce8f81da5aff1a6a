#pragma once

#include "lisp/TypeCode.h"
#include "lisp/resbuf.h"

enum class Presence { Required, Optional };

// Gives the node back when it holds exactly the expected type. There are no compatible types: a handler that takes
// several reads restype itself.
//
// Null means that there is nothing to read: an optional argument is missing, or the call has been answered already
// (message printed, nil set). In the latter case the handler returns at once and leaves the whole list alone: a node of
// the wrong type has been released with everything after it.
resbuf *checkArgument(TypeCode expected, resbuf *node, Presence presence = Presence::Required);

// The message about such a node, for handlers that find out themselves.
inline constexpr char WrongTypeMessage[] = "\nError: wrong type of argument.";
