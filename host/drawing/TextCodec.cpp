#include "host/drawing/TextCodec.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace drawing {

namespace {

constexpr std::string_view EscapeStart = "\\U+";
constexpr std::size_t EscapeDigits = 4;
constexpr char16_t RawByte =
    0xDC00; // with a byte of 0x80 and above: one that is no UTF-8; a lone surrogate is no character
constexpr int ControlOffset = 0x40; // ^A is 1

// Takes an escaped character off the front when there is one.
bool takeEscape(std::string_view &bytes, char16_t &unit)
{
    if (bytes.size() >= 2 && bytes[0] == '^' && (bytes[1] == ' ' || (bytes[1] > '@' && bytes[1] <= '_'))) {
        unit = bytes[1] == ' ' ? u'^' : static_cast<char16_t>(bytes[1] - ControlOffset);
        bytes.remove_prefix(2);
        return true;
    }
    const std::size_t length = EscapeStart.size() + EscapeDigits;
    if (!bytes.starts_with(EscapeStart) || bytes.size() < length)
        return false;
    std::uint16_t code = 0;
    const char *digits = bytes.data() + EscapeStart.size();
    const auto [end, error] = std::from_chars(digits, digits + EscapeDigits, code, 16);
    if (error != std::errc() || end != digits + EscapeDigits)
        return false;
    unit = static_cast<char16_t>(code);
    bytes.remove_prefix(length);
    return true;
}

// The length of the well-formed UTF-8 character at the front, 0 when there is none.
std::size_t utf8Length(std::string_view bytes)
{
    const auto byteAt = [&bytes](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
    };
    const unsigned first = byteAt(0);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byteAt(i) & 0xC0) != 0x80)
            return 0;
    const unsigned second = byteAt(1);
    const bool isWrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                         (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isWrong ? 0 : length;
}

// Takes one character, which is not ASCII.
void takeUtf8(std::string_view &bytes, std::u16string &text)
{
    const std::size_t length = utf8Length(bytes);
    if (length == 0) {
        text.push_back(static_cast<char16_t>(RawByte | static_cast<unsigned char>(bytes.front())));
        bytes.remove_prefix(1);
        return;
    }
    char32_t character = static_cast<unsigned char>(bytes.front()) & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i)
        character = character << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3F);
    bytes.remove_prefix(length);
    if (QChar::requiresSurrogates(character)) {
        text.push_back(QChar::highSurrogate(character));
        text.push_back(QChar::lowSurrogate(character));
    } else {
        text.push_back(static_cast<char16_t>(character));
    }
}

void appendUtf8(char32_t character, std::string &bytes)
{
    const QByteArray encoded = QString::fromUcs4(&character, 1).toUtf8();
    bytes.append(encoded.constData(), static_cast<std::size_t>(encoded.size()));
}

void appendEscape(char16_t unit, std::string &bytes)
{
    constexpr char digits[] = "0123456789ABCDEF";
    bytes.append(EscapeStart);
    for (int shift = 12; shift >= 0; shift -= 4)
        bytes.push_back(digits[unit >> shift & 0xF]);
}

// Has bits where one of eight bytes is '^', '\\' or no ASCII, and none where there is no such byte.
std::uint64_t specialBytes(std::uint64_t eight)
{
    constexpr std::uint64_t Ones = 0x0101'0101'0101'0101, High = 0x80 * Ones;
    const auto zeroBytes = [](std::uint64_t bytes) { return (bytes - Ones) & ~bytes; };
    return (zeroBytes(eight ^ '^' * Ones) | zeroBytes(eight ^ '\\' * Ones) | eight) & High;
}

} // namespace

// Names are short: eight or four bytes are looked at at once, the last ones a second time.
bool TextCodec::isPlain(std::string_view bytes)
{
    std::uint64_t special = 0, eight = 0;
    if (bytes.size() < sizeof eight) {
        std::uint32_t four = 0;
        if (bytes.size() < sizeof four) {
            for (const char byte : bytes)
                eight = eight << 8 | static_cast<unsigned char>(byte);
            return !specialBytes(eight);
        }
        std::memcpy(&four, bytes.data(), sizeof four);
        eight = four;
        std::memcpy(&four, bytes.data() + bytes.size() - sizeof four, sizeof four);
        return !specialBytes(eight << 32 | four);
    }
    const char *const last = bytes.data() + bytes.size() - sizeof eight;
    for (const char *at = bytes.data(); at < last; at += sizeof eight) {
        std::memcpy(&eight, at, sizeof eight);
        special |= specialBytes(eight);
    }
    std::memcpy(&eight, last, sizeof eight);
    return !(special | specialBytes(eight));
}

bool TextCodec::decodesTo(std::string_view bytes, std::u16string_view text) const
{
    if (!isPlain(bytes))
        return decode(bytes) == text;
    if (bytes.size() != text.size())
        return false;
    unsigned differences = 0; // most texts are the same: to look for the first difference takes longer
    for (std::size_t i = 0; i < bytes.size(); ++i)
        differences |= static_cast<unsigned>(text[i]) ^ static_cast<unsigned char>(bytes[i]);
    return differences == 0;
}

std::u16string TextCodec::decode(std::string_view bytes) const
{
    if (isPlain(bytes))
        return widened(bytes);
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char16_t unit = 0;
        if (takeEscape(bytes, unit)) {
            text.push_back(unit);
        } else if (static_cast<signed char>(bytes.front()) >= 0) {
            text.push_back(static_cast<char16_t>(bytes.front()));
            bytes.remove_prefix(1);
        } else if (m_codePage) {
            text.push_back(m_codePage->takeCharacter(bytes));
        } else {
            takeUtf8(bytes, text);
        }
    }
    return text;
}

std::string TextCodec::encode(std::u16string_view text) const
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at)
        encodeUnit(text, at, bytes);
    return bytes;
}

void TextCodec::encodeUnit(std::u16string_view text, std::size_t &at, std::string &bytes) const
{
    const char16_t unit = text[at];
    const bool isPair = QChar::isHighSurrogate(unit) && at + 1 < text.size() && QChar::isLowSurrogate(text[at + 1]);
    if (unit < u' ') {
        bytes.push_back('^');
        bytes.push_back(static_cast<char>(unit + ControlOffset));
    } else if (unit == u'^') {
        bytes.append("^ ");
    } else if (unit < 0x80) {
        bytes.push_back(static_cast<char>(unit));
    } else if (m_codePage) {
        if (const auto known = m_codePage->bytesOf(unit))
            bytes.append(*known);
        else
            appendEscape(unit, bytes);
    } else if (isPair) {
        appendUtf8(QChar::surrogateToUcs4(unit, text[++at]), bytes);
    } else if (unit >= (RawByte | 0x80) && unit <= (RawByte | 0xFF)) {
        bytes.push_back(static_cast<char>(unit - RawByte));
    } else if (QChar::isSurrogate(unit)) {
        appendEscape(unit, bytes);
    } else {
        appendUtf8(unit, bytes);
    }
}

std::u16string widened(std::string_view ascii)
{
    std::u16string text(ascii.size(), u'\0');
    std::transform(ascii.begin(), ascii.end(), text.begin(),
                   [](char letter) { return static_cast<char16_t>(static_cast<unsigned char>(letter)); });
    return text;
}

std::u16string folded(std::u16string_view name)
{
    std::u16string text(name);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char16_t unit) { return QChar(unit).toCaseFolded().unicode(); });
    return text;
}

} // namespace drawing
