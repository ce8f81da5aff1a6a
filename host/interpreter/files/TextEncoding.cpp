#include "host/interpreter/files/TextEncoding.h"

#include <QString>

#include <algorithm>
#include <iterator>

namespace lisp {

namespace {

// The characters of 0x80 to 0x9F; the five codes that are not assigned stand for the control characters.
constexpr char16_t windows1252[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
constexpr unsigned char FirstSpecial = 0x80, AfterSpecial = 0xA0;

char16_t characterOf(unsigned char byte)
{
    return byte >= FirstSpecial && byte < AfterSpecial ? windows1252[byte - FirstSpecial] : byte;
}

std::optional<char> byteOf(char16_t unit)
{
    if (unit < FirstSpecial || (unit >= AfterSpecial && unit <= 0xFF))
        return static_cast<char>(unit);
    const auto found = std::find(std::begin(windows1252), std::end(windows1252), unit);
    if (found == std::end(windows1252))
        return std::nullopt;
    return static_cast<char>(FirstSpecial + (found - std::begin(windows1252)));
}

QStringConverter::Encoding unicodeForm(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf16LittleEndian:
        return QStringConverter::Utf16LE;
    case TextEncoding::Utf16BigEndian:
        return QStringConverter::Utf16BE;
    default:
        return QStringConverter::Utf8;
    }
}

} // namespace

std::optional<ByteOrderMark> byteOrderMark(QByteArrayView bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return ByteOrderMark{TextEncoding::Utf8, 3};
    if (bytes.startsWith("\xFF\xFE"))
        return ByteOrderMark{TextEncoding::Utf16LittleEndian, 2};
    if (bytes.startsWith("\xFE\xFF"))
        return ByteOrderMark{TextEncoding::Utf16BigEndian, 2};
    return std::nullopt;
}

TextDecoder::TextDecoder(TextEncoding encoding)
{
    if (encoding != TextEncoding::Windows1252)
        m_unicode.emplace(unicodeForm(encoding));
}

void TextDecoder::append(std::u16string &text, QByteArrayView bytes)
{
    const std::size_t start = text.size();
    if (!m_unicode) {
        text.resize(start + static_cast<std::size_t>(bytes.size()));
        std::transform(bytes.begin(), bytes.end(), text.data() + start,
                       [](char byte) { return characterOf(static_cast<unsigned char>(byte)); });
        return;
    }
    text.resize(start + static_cast<std::size_t>(m_unicode->requiredSpace(bytes.size())));
    QChar *begin = reinterpret_cast<QChar *>(text.data());
    const QChar *end = m_unicode->appendToBuffer(begin + start, bytes);
    text.resize(static_cast<std::size_t>(end - begin));
}

QByteArray encodedAsWindows1252(std::u16string_view text)
{
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(text.size()));
    for (const char16_t unit : text) {
        if (const std::optional<char> byte = byteOf(unit))
            bytes += *byte;
        else
            bytes += "\\U+" + QByteArray::number(unit, 16).rightJustified(4, '0').toUpper();
    }
    return bytes;
}

} // namespace lisp
