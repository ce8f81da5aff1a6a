#include "host/interpreter/NativeStack.h"

#include <cstddef>

#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace lisp {

namespace {

constexpr std::size_t Reserve = std::size_t{512} * 1024;

const char *findLimit()
{
#ifdef _WIN32
    ULONG_PTR low = 0, high = 0;
    GetCurrentThreadStackLimits(&low, &high);
    return reinterpret_cast<const char *>(low) + Reserve;
#else
    pthread_attr_t attributes;
    void *low = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return nullptr;
    pthread_attr_getstack(&attributes, &low, &size);
    pthread_attr_destroy(&attributes);
    return static_cast<const char *>(low) + Reserve;
#endif
}

} // namespace

// The system looks in a file of the process, which later may be out of reach.
const char *nativeStackLimit()
{
    thread_local const char *const limit = findLimit();
    return limit;
}

} // namespace lisp
