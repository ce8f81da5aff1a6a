#pragma once

#include "host/interpreter/Builtins.h"

namespace lisptest {

// What tests of LISP programs say: assert, assert-equal and so on. For machines of documents, while a TestRun lives.
std::span<const lisp::BuiltinRow> assertionBuiltins();

} // namespace lisptest
