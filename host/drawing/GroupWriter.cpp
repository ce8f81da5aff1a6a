#include "host/drawing/GroupWriter.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace drawing {

namespace {

template <class Number> void appendNumberBytes(std::string &bytes, Number number)
{
    bytes.append(reinterpret_cast<const char *>(&number), sizeof number);
}

template <class Number> bool holds(std::int64_t value)
{
    return value >= std::numeric_limits<Number>::min() && value <= std::numeric_limits<Number>::max();
}

std::string hexDigits(std::uint64_t value)
{
    char digits[16];
    const char *end = std::to_chars(digits, std::end(digits), value, 16).ptr;
    std::string text(digits, static_cast<std::size_t>(end - digits));
    for (char &digit : text)
        digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
    return text;
}

// Most numbers of drawings are whole thousandths, whose digits are had much faster than those of any number. Up to
// fifteen digits are always the shortest that read back as the same number. Empty for other numbers.
std::string thousandthsText(double value)
{
    constexpr double Limit = 1e12; // from there on there may be more digits
    constexpr std::int64_t Whole = 1000;
    if (!(std::abs(value) < Limit) || (value == 0 && std::signbit(value)))
        return {};
    const double nearest = value * Whole + (value < 0 ? -0.5 : 0.5);
    const auto thousandths = static_cast<std::int64_t>(nearest);
    if (static_cast<double>(thousandths) / Whole != value)
        return {};
    const std::int64_t magnitude = std::abs(thousandths);
    char digits[24] = "-";
    char *end = std::to_chars(digits + 1, std::end(digits), magnitude / Whole).ptr;
    *end++ = '.';
    auto rest = static_cast<int>(magnitude % Whole);
    do {
        *end++ = static_cast<char>('0' + rest / 100);
        rest = rest % 100 * 10;
    } while (rest != 0);
    return {thousandths < 0 ? digits : digits + 1, end};
}

// The shortest digits that read back as the same number, with a point or an exponent.
std::string realText(double value)
{
    if (std::string text = thousandthsText(value); !text.empty())
        return text;
    char digits[32];
    const char *end = std::to_chars(digits, std::end(digits), value).ptr;
    std::string text(digits, static_cast<std::size_t>(end - digits));
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

} // namespace

void GroupWriter::appendCode(std::string &bytes, int code) const
{
    constexpr std::size_t PaddedWidth = 3;
    constexpr int LongCode = 255;
    if (isText()) {
        char digits[16];
        const auto length = static_cast<std::size_t>(std::to_chars(digits, std::end(digits), code).ptr - digits);
        if (m_format.codes == FileFormat::Codes::Padded && length < PaddedWidth)
            bytes.append(PaddedWidth - length, ' ');
        bytes.append(digits, length).append(m_format.lineEnd);
        return;
    }
    const bool isShort = m_format.kind == FileFormat::Kind::BinaryShortCodes;
    if (isShort && code >= 0 && code < LongCode) {
        bytes.push_back(static_cast<char>(code));
        return;
    }
    if (isShort)
        bytes.push_back(static_cast<char>(LongCode));
    appendNumberBytes(bytes, static_cast<std::int16_t>(code));
}

void GroupWriter::appendText(std::string &bytes, int code, std::string_view value) const
{
    appendCode(bytes, code);
    bytes.append(value);
    if (isText())
        bytes.append(m_format.lineEnd);
    else
        bytes.push_back('\0');
}

bool GroupWriter::appendReal(std::string &bytes, int code, double value) const
{
    if (!std::isfinite(value))
        return false;
    if (isText()) {
        appendText(bytes, code, realText(value));
    } else {
        appendCode(bytes, code);
        appendNumberBytes(bytes, value);
    }
    return true;
}

bool GroupWriter::appendInteger(std::string &bytes, int code, ValueKind kind, std::int64_t value) const
{
    // Files have bit fields of 16 and 32 bits, written signed by some programs and unsigned by others.
    const bool fits = kind == ValueKind::Integer16   ? holds<std::int16_t>(value) || holds<std::uint16_t>(value)
                      : kind == ValueKind::Integer32 ? holds<std::int32_t>(value) || holds<std::uint32_t>(value)
                      : kind == ValueKind::Boolean   ? holds<std::uint8_t>(value)
                                                     : true;
    if (!fits)
        return false;
    if (isText()) {
        appendText(bytes, code, std::to_string(value));
        return true;
    }
    appendCode(bytes, code);
    if (kind == ValueKind::Integer16)
        appendNumberBytes(bytes, static_cast<std::int16_t>(value));
    else if (kind == ValueKind::Integer32)
        appendNumberBytes(bytes, static_cast<std::int32_t>(value));
    else if (kind == ValueKind::Boolean)
        appendNumberBytes(bytes, static_cast<std::uint8_t>(value));
    else
        appendNumberBytes(bytes, value);
    return true;
}

void GroupWriter::appendBinary(std::string &bytes, int code, std::string_view value) const
{
    constexpr std::size_t MostBytes = 127; // in one group
    do {
        const std::string_view chunk = value.substr(0, MostBytes);
        value.remove_prefix(chunk.size());
        appendCode(bytes, code);
        if (!isText()) {
            bytes.push_back(static_cast<char>(chunk.size()));
            bytes.append(chunk);
            continue;
        }
        for (const char byte : chunk) {
            const std::string digits = hexDigits(static_cast<unsigned char>(byte));
            bytes.append(digits.size() < 2 ? "0" : "").append(digits);
        }
        bytes.append(m_format.lineEnd);
    } while (!value.empty());
}

bool GroupWriter::append(std::string &bytes, int code, const GroupValue &value) const
{
    const ValueKind kind = valueKind(code);
    if (const Point *point = std::get_if<Point>(&value))
        return kind == ValueKind::Real && appendReal(bytes, code, point->x) &&
               appendReal(bytes, code + groupcode::YOffset, point->y) &&
               (point->dimensions < 3 || appendReal(bytes, code + groupcode::ZOffset, point->z));
    const auto *text = std::get_if<std::u16string>(&value);
    const auto *integer = std::get_if<std::int64_t>(&value);
    const auto *real = std::get_if<double>(&value);
    const auto *handle = std::get_if<Handle>(&value);
    const auto *binary = std::get_if<Bytes>(&value);
    if (text && (kind == ValueKind::Text || kind == ValueKind::Handle || kind == ValueKind::Reference))
        appendText(bytes, code, m_codec->encode(*text));
    else if (handle && (kind == ValueKind::Handle || kind == ValueKind::Reference))
        appendText(bytes, code, hexDigits(handle->value));
    else if (binary && kind == ValueKind::Binary)
        appendBinary(bytes, code, binary->bytes);
    else if (kind == ValueKind::Real && (real || integer))
        return appendReal(bytes, code, real ? *real : static_cast<double>(*integer));
    else if (isInteger(kind) && integer)
        return appendInteger(bytes, code, kind, *integer);
    else
        return false;
    return true;
}

std::optional<std::string> GroupWriter::bytesOf(const GroupList &groups) const
{
    std::string bytes;
    for (const Group &group : groups)
        if (!append(bytes, group.code, group.value))
            return std::nullopt;
    return bytes;
}

} // namespace drawing
