#pragma once

#include <string>
#include <vector>

// Answers the calls that the filter reports, for as long as the process lives; to be run by a thread that the filter
// does not bind. `descriptor` tells of them. Code may be loaded from the `libraryFolders` alone.
void watchCalls(int descriptor, const std::vector<std::string> &libraryFolders);
