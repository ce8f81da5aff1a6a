#pragma once

#include "app/sandbox/SandboxOptions.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

// What the user asked for on the command line.
struct Options
{
    enum class Command { Run, Eval, Test, Repl, Gui, Doc, RegistryExport, RegistryImport };

    Command command = Command::Repl;
    std::vector<QString> operands;               // files, folders, expressions, the name to explain, registry keys
    std::vector<QString> programArguments;       // after --
    std::optional<std::vector<QString>> modules; // nothing: the module beside the program
    QString profileFolder;                       // empty: the user's own
    QString drawingFile;                         // empty: a new, empty drawing
    QString saveFile;                            // empty: not saved
    QString plotFile;                            // empty: not drawn; else it ends in a kind that can be
    QString plotLayout;                          // empty: what the drawing shows when it is opened
    QString answersFile;                         // empty: no answers
    QString transcriptFile;                      // empty: none; "-": standard error
    QString junitFile;                           // empty: none
    bool reportsAsTap = false;                   // how tests went
    int secondsForATest = 0;                     // 0: as many as it takes
    std::optional<SandboxOptions> sandbox;
};

enum ExitStatus : int { ExitFine = 0, ExitFailed = 1, ExitUsage = 2, ExitFile = 3 };

// The options, or the status to exit with at once after help, the version or a usage error was printed.
struct ParsedCommandLine
{
    Options options;
    std::optional<int> exitStatus;
};
// The arguments are in UTF-8, the program's name first.
ParsedCommandLine parseCommandLine(const std::vector<std::string> &arguments);
