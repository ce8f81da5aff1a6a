#pragma once

#include <QString>

#include <string>

class Document;
class Prompter;
class SystemVariables;

namespace lisp {
struct UnitVariables;
}

// Ties the variables that other parts of the host work with to their places there.
void bindUnits(SystemVariables &variables, lisp::UnitVariables &units);
void bindInput(SystemVariables &variables, Prompter &prompter);

// The variables that tell of the machine: clock, user, platform, folders.
void computeEnvironment(SystemVariables &variables);

// The variables that tell of the commands that run, and of undo.
void computeSpace(SystemVariables &variables, Document &document);   // CTAB, CVPORT
void computeCoordinates(SystemVariables &variables);                 // WORLDUCS
void computeChanges(SystemVariables &variables, Document &document); // DBMOD
void computeCommandLine(SystemVariables &variables, Document &document);

// A folder's name as variables give it: with the system's separators, and one at the end.
std::u16string folderName(const QString &path);
