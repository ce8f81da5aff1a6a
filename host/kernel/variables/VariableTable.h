#pragma once

#include <limits>
#include <span>
#include <string_view>

// What kind of value a system variable has.
enum class VariableType { Integer, Real, Text, Point2d, Point3d };

enum class VariableAccess { ReadWrite, ReadOnly };

// Where a variable's value lives.
enum class VariableScope {
    Session, // as long as the document is open
    Drawing, // in the drawing's header, under the name with a "$" in front
};

// One system variable: what it is at first, and what it can be.
struct VariableRow
{
    std::u16string_view name; // capitals
    VariableType type;
    std::u16string_view initial; // numbers in decimal, coordinates between commas
    VariableScope scope = VariableScope::Session;
    VariableAccess access = VariableAccess::ReadWrite;
    int minimum = std::numeric_limits<std::int16_t>::min(); // of integers
    int maximum = std::numeric_limits<std::int16_t>::max();
};

// All variables, by name.
std::span<const VariableRow> variableTable();

// The row of a name in any case; null when there is no such variable.
const VariableRow *findVariable(std::u16string_view name);
