#pragma once

#include <cerrno>

// What the module's own calls of the standard library have left in errno. The thread's errno does not tell: the host,
// Qt and the platform library share it and change it on the way from one LISP function to the next.
inline int lastRuntimeError = 0;

// Every call that the module makes itself and that may set errno goes through here. It finds errno as the one before it
// has left it.
template <class Call> auto callRuntime(Call call)
{
    errno = lastRuntimeError;
    const auto result = call();
    lastRuntimeError = errno;
    return result;
}
