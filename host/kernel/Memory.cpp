#include "host/kernel/Memory.h"

#include <malloc.h>

namespace {

constexpr int LargestKept = 256 * 1024 * 1024;
constexpr int LargestHeapBlock = 32 * 1024 * 1024; // the largest that glibc allows, see mallopt(3)

} // namespace

void keepFreedMemory()
{
#if defined(M_TRIM_THRESHOLD) && defined(M_MMAP_THRESHOLD)
    mallopt(M_TRIM_THRESHOLD, LargestKept);
    mallopt(M_MMAP_THRESHOLD, LargestHeapBlock); // larger ones always go back to the system
#endif
}
