#include "host/drawing/ItemValues.h"

#include <cmath>

namespace drawing {

namespace {

// Damaged binary files have reals that are no numbers, which equal nothing, and cannot be written but kept.
bool isSameReal(double old, double real)
{
    return real == old || (std::isnan(real) && std::isnan(old));
}

bool isSameNumber(double old, const GroupValue &value)
{
    const double *real = std::get_if<double>(&value);
    const auto *integer = std::get_if<std::int64_t>(&value);
    return (real && isSameReal(old, *real)) || (integer && static_cast<double>(*integer) == old);
}

bool isSamePoint(const Point &old, const GroupValue &value)
{
    const Point *point = std::get_if<Point>(&value);
    return point && point->dimensions == old.dimensions && isSameReal(old.x, point->x) && isSameReal(old.y, point->y) &&
           isSameReal(old.z, point->z);
}

bool isSameHandle(const Item &item, const GroupValue &value)
{
    const Handle *handle = std::get_if<Handle>(&value);
    return handle && handle->value == item.handle;
}

} // namespace

bool ItemValues::isSame(const Item &item, const Group &group) const
{
    if (item.code != group.code)
        return false;
    switch (item.kind) {
    case ValueKind::Text:
        return isSameText(item, group.value);
    case ValueKind::Handle:
        return isSameText(item, group.value) || isSameHandle(item, group.value);
    case ValueKind::Reference:
        return isSameHandle(item, group.value);
    case ValueKind::Real:
        return isSameNumber(item.real, group.value);
    case ValueKind::Point:
        return isSamePoint(item.point, group.value);
    case ValueKind::Binary: {
        // Only whole groups are compared: a value that is spread over several is written anew.
        const Bytes *bytes = std::get_if<Bytes>(&group.value);
        return bytes && GroupReader(item.bytes, m_format, m_codec).group(item).value == group.value;
    }
    default: {
        const auto *integer = std::get_if<std::int64_t>(&group.value);
        return integer && *integer == item.integer;
    }
    }
}

bool ItemValues::isSameText(const Item &item, const GroupValue &value) const
{
    const auto *text = std::get_if<std::u16string>(&value);
    return text && m_codec.decodesTo(item.value, *text);
}

bool ItemValues::appendChanged(std::string &bytes, const Item &item, const Group &group) const
{
    const Point *point = std::get_if<Point>(&group.value);
    if (!point || item.kind != ValueKind::Point || point->dimensions != item.point.dimensions)
        return m_writer.append(bytes, group.code, group.value);
    const double before[] = {item.point.x, item.point.y, item.point.z};
    const double after[] = {point->x, point->y, point->z};
    GroupCursor cursor(item.bytes, m_format);
    RawGroup raw;
    for (std::size_t i = 0; cursor.next(raw);) {
        const bool isComment = raw.code == groupcode::Comment;
        if (isComment || isSameReal(before[i], after[i]))
            bytes.append(raw.bytes);
        else if (!m_writer.appendReal(bytes, raw.code, after[i]))
            return false;
        i += isComment ? 0 : 1;
    }
    return true;
}

} // namespace drawing
