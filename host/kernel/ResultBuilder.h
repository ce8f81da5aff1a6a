#pragma once

#include "host/interpreter/Machine.h"
#include "lisp/resbuf.h"

// LISP values from result-buffer nodes.

// The value of a whole list of nodes: one that begins with a list that is never closed is that list itself; any other
// sequence gives the list of its top-level items.
lisp::Value listFromNodes(lisp::Machine &machine, const resbuf *nodes);
// The value that stands first: one atom, or the list from a 5016 node to its end.
lisp::Value valueFromNodes(lisp::Machine &machine, const resbuf *nodes);
