#pragma once

namespace lisp {

// The lowest address that C++ code of this thread may still use for recursion, with a reserve below it for what runs
// without checking. The stack grows downwards on every platform that is built for.
const char *nativeStackLimit();

} // namespace lisp
