#pragma once

#include <functional>

namespace drawing {

// Told now and then which share of a file has been read, from 0 to 1. What it throws ends the reading.
using ReadWatch = std::function<void(double share)>;

inline constexpr unsigned WatchedRecords = 1 << 15; // between two times; they take some milliseconds

} // namespace drawing
