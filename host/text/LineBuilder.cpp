#include "host/text/LineBuilder.h"

#include "host/text/CodeReader.h"

namespace text {

namespace {

constexpr double LineDistance = 5.0 / 3, TabWidth = 4, FractionHeight = 0.7, FractionGap = 0.15;
constexpr double UnderBase = -0.2, OverCapitals = 1.2, ThroughLetters = 0.5;

const Face &faceOf(const Format &format)
{
    return faceFor({format.font, format.isBold, format.isItalic});
}

double advanceOf(const Glyph &glyph, const Format &format)
{
    return glyph.advance * format.height * format.widthFactor * format.tracking;
}

Layout layOut(std::u16string_view string, const Format &format)
{
    Layout layout;
    for (CodeReader reader(string); !reader.isAtEnd();) {
        const auto special = reader.specialCharacter();
        const Glyph &glyph = faceOf(format).glyph(special ? *special : reader.character());
        layout.glyphs.push_back(
            {&glyph, {layout.width, 0}, format.height, format.widthFactor, format.slant, format.color});
        layout.width += advanceOf(glyph, format);
    }
    return layout;
}

} // namespace

void LineBuilder::add(const Layout &layout, const Format &format, double height)
{
    const double from = m_word.layout.width;
    m_word.layout.append(layout, {from, 0});
    m_word.layout.width += layout.width;
    m_word.height = std::max(m_word.height, height);
    addRules(from, format);
}

void LineBuilder::addRules(double from, const Format &format)
{
    const auto rule = [&](bool isWanted, double height) {
        if (isWanted)
            m_word.layout.rules.push_back(
                {{from, height * format.height}, {m_word.layout.width, height * format.height}, format.color});
    };
    rule(format.isUnderlined, UnderBase);
    rule(format.isOverlined, OverCapitals);
    rule(format.isStruck, ThroughLetters);
}

void LineBuilder::addCharacter(char32_t character, const Format &format)
{
    const Glyph &glyph = faceOf(format).glyph(character);
    Layout layout;
    const double raised = (m_text.height - format.height) * format.alignment / 2; // for smaller letters
    layout.glyphs.push_back(
        {&glyph, {0, std::max(raised, 0.0)}, format.height, format.widthFactor, format.slant, format.color});
    layout.width = advanceOf(glyph, format);
    add(layout, format, format.height);
}

void LineBuilder::addSpace(const Format &format)
{
    const double width = advanceOf(faceOf(format).glyph(U' '), format);
    if (format.isUnderlined || format.isOverlined || format.isStruck) {
        m_word.layout.width += width; // so that the line goes on; the word then ends behind the space
        addRules(m_word.layout.width - width, format);
        endWord();
        return;
    }
    endWord();
    m_space += width;
}

void LineBuilder::addTab(const Format &format)
{
    endWord();
    const double at = m_line.layout.width + m_space, step = TabWidth * format.height;
    m_space += (std::floor(at / step) + 1) * step - at;
}

void LineBuilder::addFraction(const std::u16string &halves, const Format &format)
{
    const std::size_t mark = halves.find_first_of(u"^/#");
    if (mark == std::u16string::npos) {
        add(layOut(halves, format), format, format.height);
        return;
    }
    Format small = format;
    small.height *= FractionHeight;
    const Layout top = layOut(std::u16string_view(halves).substr(0, mark), small);
    const Layout bottom = layOut(std::u16string_view(halves).substr(mark + 1), small);
    const bool isDiagonal = halves[mark] == u'#', hasBar = halves[mark] == u'/';
    const double gap = FractionGap * format.height, middle = format.height / 2;
    Layout both;
    both.width = isDiagonal ? top.width + gap + bottom.width : std::max(top.width, bottom.width);
    const double topX = hasBar ? (both.width - top.width) / 2 : 0;
    const double bottomX = isDiagonal ? top.width + gap : hasBar ? (both.width - bottom.width) / 2 : 0;
    both.append(top, {topX, isDiagonal ? middle : middle + gap});
    both.append(bottom, {bottomX, isDiagonal ? 0 : middle - gap - small.height});
    if (hasBar)
        both.rules.push_back({{0, middle}, {both.width, middle}, format.color});
    if (isDiagonal)
        both.rules.push_back({{top.width - gap, 0}, {top.width + 2 * gap, format.height}, format.color});
    add(both, format, isDiagonal ? middle + small.height : middle + gap + small.height);
}

double LineBuilder::room() const
{
    const double indent = m_paragraph.leftIndent + (m_isFirstLine ? m_paragraph.firstIndent : 0);
    return m_text.width > 0 ? m_text.width - indent - m_paragraph.rightIndent : INFINITY;
}

void LineBuilder::endWord()
{
    if (m_word.layout.glyphs.empty() && m_word.layout.width == 0)
        return;
    const bool isFirst = m_line.layout.glyphs.empty();
    constexpr double Rounding = 1 + 1e-9;
    if (!isFirst && m_line.layout.width + m_space + m_word.layout.width > room() * Rounding)
        endLine(0);
    m_line.layout.append(m_word.layout, {m_line.layout.width + m_space, 0});
    m_line.layout.width += m_space + m_word.layout.width;
    m_line.height = std::max(m_line.height, m_word.height);
    m_word = {};
    m_space = 0;
}

void LineBuilder::endLine(double height)
{
    m_line.height = m_line.height > 0 ? m_line.height : height;
    m_line.left = m_paragraph.leftIndent + (m_isFirstLine ? m_paragraph.firstIndent : 0);
    m_line.right = m_paragraph.rightIndent;
    m_line.alignment = m_paragraph.alignment;
    m_lines.push_back(std::move(m_line));
    m_line = {};
    m_space = 0; // a line does not begin with the space that it was broken at
    m_isFirstLine = false;
}

void LineBuilder::endParagraph(const Format &format)
{
    endWord();
    endLine(format.height);
    m_isFirstLine = true;
}

Place LineBuilder::originOf(const Line &line, double columnWidth) const
{
    constexpr int Columns = 3;
    const int column = std::clamp(m_text.attachment - 1, 0, 8) % Columns;
    const double columnLeft = -columnWidth * column / 2;
    const double free = columnWidth - line.left - line.right - line.layout.width;
    const char16_t alignment = line.alignment ? line.alignment : u"lcr"[column];
    const double share = alignment == u'c' ? 0.5 : alignment == u'r' ? 1 : 0;
    return {columnLeft + line.left + free * share, 0};
}

Layout LineBuilder::finished()
{
    endWord();
    if (!m_line.layout.glyphs.empty() || m_lines.empty())
        endLine(m_text.height);
    Layout all;
    for (const Line &line : m_lines)
        all.width = std::max(all.width, line.left + line.layout.width + line.right);
    const double columnWidth = m_text.width > 0 ? m_text.width : all.width;
    std::vector<double> bases;
    double base = -m_lines.front().height;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const double height = m_text.isExactSpacing ? m_text.height : m_lines[i].height;
        base -= i == 0 ? 0 : height * LineDistance * m_text.lineSpacing;
        bases.push_back(base);
    }
    constexpr int Rows = 3;
    const double up = -base * (std::clamp(m_text.attachment - 1, 0, 8) / Rows) / 2;
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        all.append(m_lines[i].layout, {originOf(m_lines[i], columnWidth).x, bases[i] + up});
    return all;
}

} // namespace text
