#pragma once

#include "host/drawing/GroupCodes.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace drawing {

struct Handle
{
    std::uint64_t value = 0;
    bool operator==(const Handle &) const = default;
};

struct Point
{
    double x = 0, y = 0, z = 0;
    int dimensions = 3; // 2 or 3
    bool operator==(const Point &) const = default;
};

struct Bytes
{
    std::string bytes;
    bool operator==(const Bytes &) const = default;
};

// Texts and handles as text (ValueKind::Text and Handle), references to other records (Reference), and so on.
using GroupValue = std::variant<std::u16string, double, std::int64_t, Point, Handle, Bytes>;

// A group with its value decoded; the two or three groups of a point are one.
struct Group
{
    int code;
    GroupValue value;
    bool operator==(const Group &) const = default;
};

using GroupList = std::vector<Group>;

// The first group with the code, or null.
const Group *findGroup(const GroupList &groups, int code);

// The value of the first group with the code, if it is there and of this type.
template <class Value> const Value *findValue(const GroupList &groups, int code)
{
    const Group *group = findGroup(groups, code);
    return group ? std::get_if<Value>(&group->value) : nullptr;
}

} // namespace drawing
