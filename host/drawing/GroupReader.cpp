#include "host/drawing/GroupReader.h"

#include "host/drawing/RawValues.h"

namespace drawing {

namespace {

void extend(std::string_view &bytes, std::string_view later)
{
    bytes = {bytes.data(), static_cast<std::size_t>(later.data() + later.size() - bytes.data())};
}

} // namespace

bool GroupReader::nextRaw(RawGroup &group)
{
    if (m_hasAhead) {
        group = m_ahead;
        m_hasAhead = false;
        return true;
    }
    do {
        if (!m_cursor.next(group))
            return false;
    } while (group.code == groupcode::Comment);
    return true;
}

bool GroupReader::next(Item &item)
{
    if (!nextRaw(item.raw))
        return false;
    item.code = item.raw.code;
    item.bytes = item.raw.bytes;
    item.kind = valueKind(item.code);
    if (isInteger(item.kind))
        item.integer = integerOf(item.raw, m_format.kind);
    else if (item.kind == ValueKind::Handle || item.kind == ValueKind::Reference)
        item.handle = handleOf(item.raw.value);
    else if (item.kind == ValueKind::Real && mayBeginPoint(item.code))
        readPoint(item);
    else if (item.kind == ValueKind::Real)
        item.real = realOf(item.raw, m_format.kind);
    return true;
}

void GroupReader::readPoint(Item &item)
{
    item.real = realOf(item.raw, m_format.kind);
    m_hasAhead = nextRaw(m_ahead);
    if (!m_hasAhead || m_ahead.code != item.code + groupcode::YOffset)
        return; // a real on its own
    item.kind = ValueKind::Point;
    item.point = {item.real, realOf(m_ahead, m_format.kind), 0, 2};
    extend(item.bytes, m_ahead.bytes);
    m_hasAhead = false;
    m_hasAhead = nextRaw(m_ahead);
    if (!m_hasAhead || m_ahead.code != item.code + groupcode::ZOffset)
        return;
    item.point.z = realOf(m_ahead, m_format.kind);
    item.point.dimensions = 3;
    extend(item.bytes, m_ahead.bytes);
    m_hasAhead = false;
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
        return {item.code, Bytes{bytesOf(item.raw, m_format.kind)}};
    default:
        return {item.code, item.integer};
    }
}

} // namespace drawing
