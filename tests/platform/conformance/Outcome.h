#pragma once

#include "platform/LastError.h"

#include <cstdint>
#include <ostream>

// What a call gives and which error it leaves behind.
struct Outcome
{
    std::int64_t result = 0;
    DWORD lastError = ERROR_SUCCESS;

    friend bool operator==(const Outcome &, const Outcome &) = default;
};

inline void PrintTo(const Outcome &outcome, std::ostream *stream)
{
    *stream << "result " << outcome.result << ", last error " << outcome.lastError;
}

// The call's outcome; a call that leaves the last error alone leaves 0 here.
template <class Call> Outcome outcomeOf(Call call)
{
    SetLastError(ERROR_SUCCESS);
    const auto result = static_cast<std::int64_t>(call());
    return {result, GetLastError()};
}
