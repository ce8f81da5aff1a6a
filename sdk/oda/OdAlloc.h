#pragma once

#include "sdk/oda/OdRxExport.h"

#include <cstddef>

// The SDK's own allocator. odrxAlloc gives null when memory is short; odrxFree takes null.
extern "C" ODRX_EXPORT void *odrxAlloc(std::size_t size);
extern "C" ODRX_EXPORT void odrxFree(void *memory);
