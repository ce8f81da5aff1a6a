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

// What of a drawing a variable is the name of.
enum class NameOf { Nothing, Color, HatchColor, Layer, Linetype, TextStyle, TableStyle, Arrow };

// What a variable can be, besides being of its kind: what is no finite number is in no range, and integers have 16
// bits.
struct VariableRule
{
    static constexpr double Lowest = std::numeric_limits<double>::lowest();
    static constexpr double Highest = std::numeric_limits<double>::max();

    double minimum = Lowest; // of numbers, and of each coordinate
    double maximum = Highest;
    bool isAboveMinimum = false;      // the minimum itself is not in the range
    std::span<const int> values = {}; // of integers that have no range, or not every value in it; empty: all
    NameOf names = NameOf::Nothing;   // of texts
};

// One system variable: what it is at first, and what it can be.
struct VariableRow
{
    std::u16string_view name; // capitals
    VariableType type;
    std::u16string_view initial; // numbers in decimal, coordinates between commas
    VariableScope scope = VariableScope::Session;
    VariableAccess access = VariableAccess::ReadWrite;
    VariableRule rule = {};
};

// All variables, by name.
std::span<const VariableRow> variableTable();

// The row of a name in any case; null when there is no such variable.
const VariableRow *findVariable(std::u16string_view name);
