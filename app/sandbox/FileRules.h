#pragma once

#include <QString>

#include <vector>

// Which files a process may use. What is not named is out of reach, whatever path leads there: the kernel (Landlock)
// looks at the file that a path ends at.
struct FileRules
{
    std::vector<QString> readable;   // files, and folders with all below
    std::vector<QString> writable;   // folders: everything but making devices and running what is in them
    std::vector<QString> executable; // programs
};

// What the user's kernel lacks to keep to the rules; empty when it has all that they take. `abi` is the version of its
// Landlock, negative where there is none.
QString lackForRules(const FileRules &rules, long abi);

// Binds this thread, and all that it starts, for good. Paths that do not exist are passed over. Raises SandboxError
// when the kernel lacks Landlock, or where programs may run its means to bind their signals, before anything is bound.
void bindToFiles(const FileRules &rules);
