#include "host/drawing/geometry/ParagraphCodes.h"

#include "host/drawing/geometry/TextCodes.h"

#include <charconv>

namespace geometry {

namespace {

double numberIn(std::u16string_view text)
{
    const std::string ascii(text.begin(), text.end());
    double number = 0;
    std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
    return number;
}

std::u16string withSlash(std::u16string_view fraction)
{
    std::u16string text(fraction);
    for (char16_t &character : text)
        if (character == u'^' || character == u'#')
            character = u'/';
    return text;
}

// "Arial|b1|i0|c0|p34": a family; "romans": a file.
Font fontIn(std::u16string_view value, bool isFamily)
{
    Font font;
    const std::size_t end = value.find(u'|');
    (isFamily ? font.family : font.file) = value.substr(0, end);
    font.isBold = value.find(u"|b1") != value.npos;
    font.isItalic = value.find(u"|i1") != value.npos;
    return font;
}

class Parser
{
public:
    Parser(std::u16string_view text, double height) : m_rest(text) { m_run.height = height; }

    std::vector<std::vector<Run>> parse()
    {
        while (!m_rest.empty()) {
            const char16_t character = m_rest.front();
            m_rest.remove_prefix(1);
            if (character == u'\\' && !m_rest.empty())
                takeCode();
            else if (character == u'{')
                m_outer.push_back(m_run = finished());
            else if (character == u'}' && !m_outer.empty())
                endGroup();
            else if (character == u'\n')
                endParagraph();
            else
                m_run.text += character;
        }
        endParagraph();
        return std::move(m_paragraphs);
    }

private:
    // Ends the run at hand; gives one that looks like it.
    Run finished()
    {
        Run next = m_run;
        next.text.clear();
        m_run.text = withoutTextCodes(m_run.text);
        if (!m_run.text.empty())
            m_paragraphs.back().push_back(std::move(m_run));
        return next;
    }
    void endGroup()
    {
        finished();
        m_run = std::move(m_outer.back());
        m_outer.pop_back();
    }
    void endParagraph()
    {
        m_run = finished();
        m_paragraphs.emplace_back();
    }
    std::u16string_view takeValue() // up to the semicolon
    {
        const std::u16string_view value = m_rest.substr(0, m_rest.find(u';'));
        m_rest.remove_prefix(std::min(m_rest.size(), value.size() + 1));
        return value;
    }
    void takeCode()
    {
        const char16_t code = m_rest.front();
        m_rest.remove_prefix(1);
        if (code == u'P' || code == u'N')
            endParagraph();
        else if (code == u'~')
            m_run.text += u'\u00A0';
        else if (code == u'\\' || code == u'{' || code == u'}')
            m_run.text += code;
        else if (code == u'S')
            m_run.text += withSlash(takeValue());
        else if (std::u16string_view(u"HWQfFACcTp").find(code) != std::u16string_view::npos)
            setLook(code, takeValue());
        // \L \l \O \o \K \k switch lines at the text.
    }
    void setLook(char16_t code, std::u16string_view value)
    {
        m_run = finished();
        if (code == u'H')
            m_run.height = value.ends_with(u'x') ? m_run.height * numberIn(value) : numberIn(value);
        else if (code == u'W')
            m_run.widthFactor = numberIn(value);
        else if (code == u'Q')
            m_run.oblique = numberIn(value);
        else if (code == u'f' || code == u'F')
            m_run.font = fontIn(value, code == u'f');
    }

    std::u16string_view m_rest;
    Run m_run;
    std::vector<Run> m_outer;
    std::vector<std::vector<Run>> m_paragraphs{1};
};

} // namespace

std::vector<std::vector<Run>> paragraphsOf(std::u16string_view text, double height)
{
    std::vector<std::vector<Run>> paragraphs = Parser(text, height).parse();
    paragraphs.pop_back(); // behind the end of the last
    return paragraphs;
}

} // namespace geometry
