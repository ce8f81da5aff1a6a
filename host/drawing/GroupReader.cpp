#include "host/drawing/GroupReader.h"

#include "host/drawing/RawValues.h"

namespace drawing {

namespace {

void extend(std::string_view &bytes, std::string_view later)
{
    bytes = {bytes.data(), static_cast<std::size_t>(later.data() + later.size() - bytes.data())};
}

} // namespace

bool GroupReader::takeRaw(int code, RawGroup &group)
{
    const char *before = m_cursor.position();
    if (nextRaw(group) && group.code == code)
        return true;
    m_cursor.returnTo(before);
    return false;
}

void GroupReader::readValue(Item &item)
{
    item.kind = valueKind(item.code);
    if (isInteger(item.kind))
        item.integer = integerOf(item, m_format.kind);
    else if (item.kind == ValueKind::Handle || item.kind == ValueKind::Reference)
        item.handle = handleOf(item.value);
    else if (item.kind == ValueKind::Real && mayBeginPoint(item.code))
        readPoint(item);
    else if (item.kind == ValueKind::Real)
        item.real = realOf(item, m_format.kind);
}

void GroupReader::readPoint(Item &item)
{
    item.real = realOf(item, m_format.kind);
    item.point = {item.real, 0, 0, 2};
    RawGroup next;
    if (!takeRaw(item.code + groupcode::YOffset, next))
        return; // a real on its own
    item.kind = ValueKind::Point;
    item.coordinates = 2;
    item.point.y = realOf(next, m_format.kind);
    extend(item.bytes, next.bytes);
    if (!takeRaw(item.code + groupcode::ZOffset, next))
        return;
    item.point.z = realOf(next, m_format.kind);
    item.point.dimensions = item.coordinates = 3;
    extend(item.bytes, next.bytes);
}

Group GroupReader::group(const Item &item) const
{
    switch (item.kind) {
    case ValueKind::Text:
    case ValueKind::Handle:
        return {item.code, text(item)};
    case ValueKind::Reference:
        return {item.code, Handle{item.handle}};
    case ValueKind::Real:
        return {item.code, item.real};
    case ValueKind::Point:
        return {item.code, item.point};
    case ValueKind::Binary:
        return {item.code, Bytes{bytesOf(item, m_format.kind)}};
    default:
        return {item.code, item.integer};
    }
}

} // namespace drawing
