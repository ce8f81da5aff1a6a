#include "sdk/fx/CFxString.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace {

// Windows-1252 differs from Latin-1 in these 32 codes alone; 0 marks the five that it leaves open.
constexpr std::array<char16_t, 32> windows1252From80 = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                                        0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

QChar decoded(char character)
{
    const auto code = static_cast<unsigned char>(character);
    const bool special = code >= 0x80 && code < 0xA0 && windows1252From80[code - 0x80] != 0;
    return special ? QChar(windows1252From80[code - 0x80]) : QChar(static_cast<char16_t>(code));
}

// Takes the first character off the text. One that the code page lacks stands as \U+XXXX, as in drawings.
QChar takeCharacter(std::string_view &text)
{
    constexpr std::string_view escape = "\\U+";
    constexpr std::size_t escapeLength = escape.size() + 4;
    if (text.size() >= escapeLength && text.starts_with(escape)) {
        const char *end = text.data() + escapeLength;
        std::uint16_t code = 0;
        if (std::from_chars(text.data() + escape.size(), end, code, 16).ptr == end) {
            text.remove_prefix(escapeLength);
            return QChar(code);
        }
    }
    const QChar character = decoded(text.front());
    text.remove_prefix(1);
    return character;
}

int ordinalCompare(const QString &left, const QString &right)
{
    const auto units = [](const QString &text) {
        return std::u16string_view(reinterpret_cast<const char16_t *>(text.utf16()),
                                   static_cast<std::size_t>(text.size()));
    };
    return units(left).compare(units(right));
}

// One code point for one code point, which Unicode keeps on its side of U+10000: no text changes its length. Unpaired
// surrogates stay.
QString mapped(QString text, char32_t (*map)(char32_t))
{
    auto *units = reinterpret_cast<char16_t *>(text.data());
    const qsizetype size = text.size();
    for (qsizetype index = 0; index < size; ++index) {
        if (QChar::isHighSurrogate(units[index]) && index + 1 < size && QChar::isLowSurrogate(units[index + 1])) {
            const char32_t codePoint = map(QChar::surrogateToUcs4(units[index], units[index + 1]));
            units[index] = QChar::highSurrogate(codePoint);
            units[++index] = QChar::lowSurrogate(codePoint);
        } else {
            units[index] = static_cast<char16_t>(map(units[index]));
        }
    }
    return text;
}

QString folded(const QString &text)
{
    return mapped(text, [](char32_t codePoint) { return QChar::toCaseFolded(codePoint); });
}

} // namespace

CFxString::CFxString() = default;
CFxString::CFxString(const QString &text) : m_text(text) {}
CFxString::CFxString(const char16_t *text) : m_text(QStringView(text).toString()) {}
CFxString::CFxString(const CFxString &other) = default;
CFxString::CFxString(CFxString &&other) noexcept = default;
CFxString &CFxString::operator=(const CFxString &other) = default;
CFxString &CFxString::operator=(CFxString &&other) noexcept = default;
CFxString::~CFxString() = default;

CFxString CFxString::from_ansi_str(const char *text)
{
    std::string_view rest(text != nullptr ? text : "");
    QString result;
    result.reserve(static_cast<qsizetype>(rest.size()));
    while (!rest.empty())
        result += takeCharacter(rest);
    return CFxString(result);
}

const char16_t *CFxString::wide_strU() const
{
    return reinterpret_cast<const char16_t *>(m_text.utf16());
}

QString CFxString::toQString() const
{
    return m_text;
}

int CFxString::getAllocLength() const
{
    return static_cast<int>(m_text.size());
}

int CFxString::compare(const CFxString &other) const
{
    return ordinalCompare(m_text, other.m_text);
}

int CFxString::compareNoCase(const CFxString &other) const
{
    return ordinalCompare(folded(m_text), folded(other.m_text));
}

CFxString &CFxString::makeUpper()
{
    m_text = mapped(std::move(m_text), [](char32_t codePoint) { return QChar::toUpper(codePoint); });
    return *this;
}

std::vector<CFxString> CFxString::SplitW(char16_t separator) const
{
    const QStringList parts = m_text.split(separator);
    return {parts.begin(), parts.end()};
}

CFxString &CFxString::makeLower()
{
    m_text = mapped(std::move(m_text), [](char32_t codePoint) { return QChar::toLower(codePoint); });
    return *this;
}

int CFxString::find(const CFxString &other) const
{
    return static_cast<int>(m_text.indexOf(other.m_text));
}
