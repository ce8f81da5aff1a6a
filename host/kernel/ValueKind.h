#pragma once

#include <cstdint>

// What stands in a node of a list of LISP values.
enum class ValueKind : std::uint8_t { None, Text, Real, Point, Short, Long, Name };

// By the node's code: a type code, or a DXF group code by the ranges of the DXF reference. None for marks, which stand
// for themselves, the start of extended data (-3) among them, and for codes that no list carries.
ValueKind valueKind(int code);
