#include "host/text/ParagraphLayout.h"

#include "host/text/CodeReader.h"
#include "host/text/LineBuilder.h"

#include <numbers>

namespace text {

namespace {

double limited(double value, double least, double most)
{
    return std::isfinite(value) ? std::clamp(value, least, most) : 1;
}

// "2.5" is a new value, "2x" is a multiple of the present one.
double changed(const std::u16string &argument, double present)
{
    const auto number = numberIn(argument);
    if (!number)
        return present;
    const double value = argument.ends_with(u'x') || argument.ends_with(u'X') ? *number * present : *number;
    return value > 0 && std::isfinite(value) ? value : present;
}

// "Arial|b1|i0|c0|p34"
void setFont(const std::u16string &argument, Format &format)
{
    const std::size_t end = std::min(argument.find(u'|'), argument.size());
    format.font = argument.substr(0, end);
    const std::u16string_view rest = std::u16string_view(argument).substr(end);
    format.isBold = rest.find(u"|b1") != rest.npos;
    format.isItalic = rest.find(u"|i1") != rest.npos;
}

// "i2,l1.5,qc,t4,8": first indent, left and right indent, alignment; tab stops are left alone.
void setParagraph(const std::u16string &argument, double height, ParagraphFormat &paragraph)
{
    for (CodeReader reader(argument); !reader.isAtEnd();) {
        if (reader.ahead() == u'x') // stands in front of some values, and says nothing
            reader.skip();
        const std::u16string part = reader.argument(u',');
        const double number = part.size() > 1 ? numberIn(part.substr(1)).value_or(0) * height : 0;
        switch (part.empty() ? u'\0' : part[0]) {
        case u'i':
            paragraph.firstIndent = number;
            break;
        case u'l':
            paragraph.leftIndent = number;
            break;
        case u'r':
            paragraph.rightIndent = number;
            break;
        case u'q':
            paragraph.alignment = part.size() > 1 ? part[1] : u'\0';
            break;
        default:
            break;
        }
    }
}

class Setter
{
public:
    explicit Setter(const ParagraphText &text) : m_text(text), m_reader(text.string), m_lines(text)
    {
        m_format.font = text.font.name;
        m_format.isBold = text.font.isBold;
        m_format.isItalic = text.font.isItalic;
        m_format.height = text.height;
        m_format.widthFactor = text.widthFactor;
        m_format.slant = text.slant;
    }

    Layout set()
    {
        while (!m_reader.isAtEnd())
            setNext();
        return m_lines.finished();
    }

private:
    void setNext()
    {
        if (const auto special = m_reader.specialCharacter())
            m_lines.addCharacter(*special, m_format);
        else if (const auto unicode = m_reader.unicodeCharacter())
            m_lines.addCharacter(*unicode, m_format);
        else if (m_reader.ahead() == u'\\')
            setCode();
        else if (m_reader.ahead() == u'{' || m_reader.ahead() == u'}')
            setGroup(m_reader.character() == U'{');
        else
            setCharacter(m_reader.character());
    }

    void setGroup(bool begins)
    {
        if (begins) {
            m_outer.push_back(m_format);
        } else if (!m_outer.empty()) {
            m_format = m_outer.back();
            m_outer.pop_back();
        }
    }

    void setCharacter(char32_t character)
    {
        if (character == U'\n')
            m_lines.endParagraph(m_format);
        else if (character == U'\t')
            m_lines.addTab(m_format);
        else if (character == U' ')
            m_lines.addSpace(m_format);
        else if (character > U' ')
            m_lines.addCharacter(character, m_format);
    }

    void setCode()
    {
        m_reader.skip();
        const char16_t code = m_reader.ahead();
        m_reader.skip();
        if (!setSwitch(code) && !setValue(code))
            m_lines.addCharacter(code, m_format); // \\ \{ \} and what nobody knows
    }

    // Codes that are one letter alone.
    bool setSwitch(char16_t code)
    {
        constexpr char32_t NoBreakSpace = U'\u00a0';
        switch (code) {
        case u'P':
        case u'N':
        case u'X':
            m_lines.endParagraph(m_format);
            return true;
        case u'~':
            m_lines.addCharacter(NoBreakSpace, m_format);
            return true;
        case u'L':
        case u'l':
            m_format.isUnderlined = code == u'L';
            return true;
        case u'O':
        case u'o':
            m_format.isOverlined = code == u'O';
            return true;
        case u'K':
        case u'k':
            m_format.isStruck = code == u'K';
            return true;
        default:
            return false;
        }
    }

    // Codes with a value up to a semicolon.
    bool setValue(char16_t code)
    {
        switch (code) {
        case u'H':
            m_format.height = changed(m_reader.argument(), m_format.height);
            return true;
        case u'W':
            m_format.widthFactor = limited(changed(m_reader.argument(), m_format.widthFactor), 0.01, 100);
            return true;
        case u'T':
            m_format.tracking = limited(changed(m_reader.argument(), m_format.tracking), 0.1, 10);
            return true;
        case u'Q':
            m_format.slant =
                std::tan(limited(numberIn(m_reader.argument()).value_or(0), -85, 85) * (std::numbers::pi / 180));
            return true;
        case u'A':
            m_format.alignment = static_cast<int>(numberIn(m_reader.argument()).value_or(0));
            return true;
        case u'C':
            m_format.color = {static_cast<int>(limited(numberIn(m_reader.argument()).value_or(-1), -1, 256)), {}};
            return true;
        case u'c':
            setTrueColor(m_reader.argument());
            return true;
        case u'F':
        case u'f':
            setFont(m_reader.argument(), m_format);
            return true;
        case u'S':
            m_lines.addFraction(m_reader.argument(), m_format);
            return true;
        case u'p':
            setParagraph(m_reader.argument(), m_text.height, m_lines.paragraph());
            return true;
        default:
            return false;
        }
    }

    void setTrueColor(const std::u16string &argument) // blue is in the highest byte
    {
        const auto value = static_cast<std::uint32_t>(limited(numberIn(argument).value_or(0), 0, 0xffffff));
        m_format.color = {-1, (value & 0xff) << 16 | (value & 0xff00) | (value >> 16 & 0xff)};
    }

    const ParagraphText &m_text;
    CodeReader m_reader;
    LineBuilder m_lines;
    Format m_format;
    std::vector<Format> m_outer;
};

} // namespace

Layout layOutParagraphs(const ParagraphText &text)
{
    return Setter(text).set();
}

} // namespace text
