#pragma once

#include "host/interpreter/Builtins.h"

// Built-ins that need the host: its people, its stores, its drawing. Each family is one file with one table of rows, as
// in host/interpreter/builtins; Document::of(machine) leads to the rest of the host.
std::span<const lisp::BuiltinRow> commandBuiltins();         // Commands.cpp
std::span<const lisp::BuiltinRow> dictionaryBuiltins();      // Dictionaries.cpp
std::span<const lisp::BuiltinRow> entityBuiltins();          // Entities.cpp
std::span<const lisp::BuiltinRow> geometryBuiltins();        // Geometry.cpp
std::span<const lisp::BuiltinRow> graphicsBuiltins();        // Graphics.cpp
std::span<const lisp::BuiltinRow> inputBuiltins();           // Input.cpp
std::span<const lisp::BuiltinRow> menuBuiltins();            // Menus.cpp
std::span<const lisp::BuiltinRow> nestedSelectionBuiltins(); // NestedSelection.cpp
std::span<const lisp::BuiltinRow> registryBuiltins();        // Registry.cpp
std::span<const lisp::BuiltinRow> selectionBuiltins();       // Selection.cpp
std::span<const lisp::BuiltinRow> tableBuiltins();           // Tables.cpp
std::span<const lisp::BuiltinRow> variableBuiltins();        // Variables.cpp
std::span<const lisp::BuiltinRow> windowBuiltins();          // Windows.cpp

// Defines all of them in the machine of a document.
void defineHostBuiltins(lisp::Machine &machine);
