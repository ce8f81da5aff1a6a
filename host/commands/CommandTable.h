#pragma once

#include "host/commands/Context.h"

#include <span>
#include <string_view>

namespace commands {

// One command. Its name is in capitals; one that begins with a hyphen is the form without dialog.
struct CommandRow
{
    enum class Undo { OneStep, Own }; // Own: it deals with the journal itself, or changes nothing
    // Of the objects that are selected before it begins: a command that may run within another one leaves them
    // selected, any other takes them or drops them.
    enum class Preselection { TakenOrDropped, Kept };
    // Alone: it takes the drawing as it is away, on which another command may be at work.
    enum class Company { Any, Alone };

    std::u16string_view name;
    Command (*run)(Context &context);
    Undo undo = Undo::OneStep;
    Preselection preselection = Preselection::TakenOrDropped;
    Company company = Company::Any;
};

std::span<const CommandRow> commandTable();

// Null when there is no such command. The name may have the prefixes "_" and "." and be in any case, or be short for
// it.
const CommandRow *findCommand(std::u16string_view name);

// What the name of a system variable runs: asks for its new value.
const CommandRow &variableCommand();

// Ask for objects on behalf of a program: until Enter, or for one answer that finds some.
const CommandRow &objectsQuestion();
const CommandRow &objectQuestion();

// The name without prefixes, in capitals.
std::u16string commandName(std::u16string_view typed);

} // namespace commands
