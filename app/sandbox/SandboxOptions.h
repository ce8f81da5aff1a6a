#pragma once

#include <QString>

#include <vector>

// What a program that one does not trust may do; see docs/sandbox.md.
struct SandboxOptions
{
    std::vector<QString> writableFolders;
    std::vector<QString> runnablePrograms; // files, or names that PATH leads to
    int seconds = 60;                      // of wall-clock time; 0: no limit
    int megabytes = 1024;                  // of LISP data; 0: no limit
    int depth = 100'000;                   // of nested calls
};
