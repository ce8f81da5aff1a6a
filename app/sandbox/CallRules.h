#pragma once

#include <string>
#include <vector>

// What a process may do beyond files.
struct CallRules
{
    std::vector<std::string> programs;       // that it may start; none: it starts no process
    std::vector<std::string> libraryFolders; // where code may be loaded from
};
