#include "storage/RegistryTextWriter.h"

#include <QStringView>

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t LineUnits = 78; // a line of bytes goes on in the next one before it is longer

std::u16string hexadecimal(std::uint32_t number, int digits)
{
    return QStringLiteral("%1").arg(number, digits, 16, QLatin1Char('0')).toStdU16String();
}

std::u16string unitsOf(const QByteArray &data)
{
    std::u16string units(static_cast<std::size_t>(data.size()) / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), data.constData(), units.size() * sizeof(char16_t));
    return units;
}

// Whether the bytes are one text with its terminator, and a text that fits on one line between quotes.
bool isPlainText(const QByteArray &data)
{
    if (data.size() < 2 || data.size() % 2 != 0)
        return false;
    const std::u16string units = unitsOf(data);
    return units.find_first_of(std::u16string_view(u"\0\r\n", 3)) == units.size() - 1 &&
           QStringView(units).isValidUtf16();
}

} // namespace

void RegistryTextWriter::addKey(std::u16string_view path)
{
    m_text.append(m_lineEnd).append(u"[").append(path).append(u"]").append(m_lineEnd);
}

void RegistryTextWriter::removeKey(std::u16string_view path)
{
    m_text.append(m_lineEnd).append(u"[-").append(path).append(u"]").append(m_lineEnd);
}

void RegistryTextWriter::setValue(std::u16string_view name, std::uint32_t type, const QByteArray &data)
{
    writeName(name);
    if (type == RegistryText && isPlainText(data)) {
        std::u16string text = unitsOf(data);
        text.pop_back();
        writeQuoted(text);
    } else if (type == RegistryNumber && data.size() == 4) {
        std::uint32_t number = 0;
        std::memcpy(&number, data.constData(), sizeof number);
        m_text.append(u"dword:").append(hexadecimal(number, 8));
    } else {
        writeBytes(type, data);
    }
    m_text.append(m_lineEnd);
}

void RegistryTextWriter::removeValue(std::u16string_view name)
{
    writeName(name);
    m_text.append(u"-").append(m_lineEnd);
}

void RegistryTextWriter::writeName(std::u16string_view name)
{
    if (name.empty())
        m_text += u'@';
    else
        writeQuoted(name);
    m_text += u'=';
}

void RegistryTextWriter::writeQuoted(std::u16string_view text)
{
    m_text += u'"';
    for (const char16_t unit : text) {
        if (unit == u'"' || unit == u'\\')
            m_text += u'\\';
        m_text += unit;
    }
    m_text += u'"';
}

void RegistryTextWriter::writeBytes(std::uint32_t type, const QByteArray &data)
{
    constexpr char16_t Digits[] = u"0123456789abcdef";
    std::size_t lineStart = m_text.rfind(u'\n') + 1; // npos + 1 is 0
    m_text.append(u"hex");
    if (type != RegistryBinary)
        m_text.append(u"(").append(hexadecimal(type, 1)).append(u")");
    m_text += u':';
    for (qsizetype index = 0; index < data.size(); ++index) {
        const auto byte = static_cast<unsigned char>(data[index]);
        m_text += Digits[byte / 16];
        m_text += Digits[byte % 16];
        if (index + 1 == data.size())
            break;
        m_text += u',';
        if (m_text.size() - lineStart > LineUnits - 3) {
            m_text.append(u"\\").append(m_lineEnd);
            lineStart = m_text.size();
            m_text.append(u"  ");
        }
    }
}
