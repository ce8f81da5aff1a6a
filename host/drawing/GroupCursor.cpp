#include "host/drawing/GroupCursor.h"

namespace drawing {

namespace {

std::size_t fixedSize(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Real:
    case ValueKind::Integer64:
        return 8;
    case ValueKind::Integer32:
        return 4;
    case ValueKind::Integer16:
        return 2;
    case ValueKind::Boolean:
        return 1;
    default:
        return 0; // a text with a terminator, or bytes with their length before them
    }
}

// Takes a value off the front; false when it is not all there.
bool takeValue(std::string_view &rest, ValueKind kind, std::string_view &value)
{
    std::size_t size = fixedSize(kind), before = 0, after = 0;
    if (kind == ValueKind::Binary) {
        if (rest.empty())
            return false;
        before = 1;
        size = static_cast<unsigned char>(rest.front());
    } else if (size == 0) {
        size = rest.find('\0');
        if (size == std::string_view::npos)
            return false;
        after = 1;
    }
    if (rest.size() < before + size + after)
        return false;
    value = rest.substr(before, size);
    rest.remove_prefix(before + size + after);
    return true;
}

} // namespace

bool BinaryGroups::readCode(std::string_view &rest, int &code) const
{
    constexpr int LongCode = 255;
    const auto byteAt = [&rest](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
    if (m_shortCodes) {
        code = byteAt(0);
        rest.remove_prefix(1);
        if (code != LongCode)
            return true;
    }
    if (rest.size() < 2)
        return false;
    code = static_cast<std::int16_t>(byteAt(0) | byteAt(1) << 8);
    rest.remove_prefix(2);
    return true;
}

bool BinaryGroups::next(RawGroup &group)
{
    if (m_rest.empty() || m_cut)
        return false;
    std::string_view rest = m_rest;
    if (!readCode(rest, group.code) || !takeValue(rest, valueKind(group.code), group.value)) {
        m_cut = m_rest.data();
        return false;
    }
    group.bytes = m_rest.substr(0, m_rest.size() - rest.size());
    m_rest = rest;
    return true;
}

} // namespace drawing
