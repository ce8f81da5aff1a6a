#include "host/drawing/RawValues.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace drawing {

namespace {

static_assert(std::endian::native == std::endian::little); // as the numbers of binary files

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    return text;
}

template <class Number> Number fromBytes(std::string_view bytes)
{
    Number number{};
    if (bytes.size() == sizeof number)
        std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

std::int64_t integerOfText(std::string_view text)
{
    text = trimmed(text);
    std::int64_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc::result_out_of_range)
        return text.starts_with('-') ? std::numeric_limits<std::int64_t>::min()
                                     : std::numeric_limits<std::int64_t>::max();
    return number;
}

// Most numbers of a file have so few digits that digits and power of ten are exact, and so their quotient is the
// nearest there is. False for the others, and for what has an exponent. (An optional number would go through memory,
// which takes as long as all the rest.)
bool readShortReal(std::string_view text, double &real)
{
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                        1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};
    constexpr std::size_t MostDigits = std::size(powers); // which 64 bits hold
    constexpr std::uint64_t MostExact = std::uint64_t{1} << std::numeric_limits<double>::digits;
    const char *at = text.data(), *const end = at + text.size();
    const bool isNegative = at != end && *at == '-';
    at += isNegative ? 1 : 0;
    if (at == end || end - at > static_cast<std::ptrdiff_t>(MostDigits))
        return false;
    std::uint64_t number = 0;
    const auto readDigits = [&] {
        for (; at != end; ++at) {
            const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
            if (digit > 9)
                break;
            number = number * 10 + digit;
        }
    };
    readDigits();
    const char *decimals = at;
    if (at != end && *at == '.') {
        decimals = ++at;
        readDigits();
    }
    if (at != end || number > MostExact)
        return false;
    const double magnitude = static_cast<double>(static_cast<std::int64_t>(number)) / powers[end - decimals];
    real = isNegative ? -magnitude : magnitude;
    return true;
}

double realOfText(std::string_view text)
{
    double number = 0;
    if (readShortReal(text, number))
        return number;
    text = trimmed(text);
    if (!readShortReal(text, number))
        std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::optional<double> wholeReal(std::string_view text)
{
    text = trimmed(text);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// Some programs write what has no sign there, and some write integers as reals.
bool isIntegerInRange(std::string_view text, ValueKind kind)
{
    constexpr double Most16 = std::numeric_limits<std::uint16_t>::max(),
                     Most32 = std::numeric_limits<std::uint32_t>::max(),
                     Most64 = static_cast<double>(std::numeric_limits<std::uint64_t>::max());
    const double most = kind == ValueKind::Integer64 ? Most64 : kind == ValueKind::Integer32 ? Most32 : Most16;
    const std::optional<double> number = wholeReal(text);
    return number && std::trunc(*number) == *number && *number >= -(most + 1) / 2 && *number <= most;
}

int digitValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char upper = static_cast<char>(digit & ~0x20);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

} // namespace

std::int64_t integerOf(const RawGroup &group, FileFormat::Kind kind)
{
    if (kind == FileFormat::Kind::Text)
        return integerOfText(group.value);
    switch (group.value.size()) {
    case 1:
        return fromBytes<std::uint8_t>(group.value);
    case 2:
        return fromBytes<std::int16_t>(group.value);
    case 4:
        return fromBytes<std::int32_t>(group.value);
    default:
        return fromBytes<std::int64_t>(group.value);
    }
}

double realOf(const RawGroup &group, FileFormat::Kind kind)
{
    return kind == FileFormat::Kind::Text ? realOfText(group.value) : fromBytes<double>(group.value);
}

std::uint64_t handleOf(std::string_view text)
{
    constexpr std::size_t MostDigits = 16; // which 64 bits hold
    constexpr int BitsPerDigit = 4;
    text = trimmed(text);
    while (text.size() > MostDigits && text.front() == '0')
        text.remove_prefix(1);
    if (text.size() > MostDigits)
        return 0;
    std::uint64_t handle = 0;
    for (const char each : text) {
        const int digit = digitValue(each);
        if (digit < 0)
            return 0;
        handle = handle << BitsPerDigit | static_cast<unsigned>(digit);
    }
    return handle;
}

std::uint64_t handleOf(std::u16string_view text)
{
    constexpr char16_t LastAscii = 0x7F;
    std::string digits;
    for (const char16_t each : text)
        digits += each <= LastAscii ? static_cast<char>(each) : '?';
    return handleOf(std::string_view(digits));
}

std::string bytesOf(const RawGroup &group, FileFormat::Kind kind)
{
    if (kind != FileFormat::Kind::Text)
        return std::string(group.value);
    const std::string_view digits = trimmed(group.value);
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        const int high = digitValue(digits[i]), low = digitValue(digits[i + 1]);
        if (high < 0 || low < 0)
            break;
        bytes.push_back(static_cast<char>(high << 4 | low));
    }
    return bytes;
}

bool isUnusualNumberReadable(const RawGroup &group, FileFormat::Kind kind)
{
    const ValueKind valueKind = drawing::valueKind(group.code);
    if (kind != FileFormat::Kind::Text)
        return valueKind != ValueKind::Real || std::isfinite(fromBytes<double>(group.value));
    return valueKind == ValueKind::Real ? wholeReal(group.value).has_value() : isIntegerInRange(group.value, valueKind);
}

} // namespace drawing
