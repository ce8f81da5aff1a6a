#pragma once

#include "host/text/ParagraphLayout.h"

#include <vector>

namespace text {

// How the next letter is set.
struct Format
{
    std::u16string font;
    double height = 1, widthFactor = 1, slant = 0, tracking = 1;
    bool isBold = false, isItalic = false;
    bool isUnderlined = false, isOverlined = false, isStruck = false;
    int alignment = 0; // of smaller letters on the line: 0 bottom, 1 middle, 2 top
    InlineColor color;
};

struct ParagraphFormat
{
    double firstIndent = 0, leftIndent = 0, rightIndent = 0; // in the units of the text's height
    char16_t alignment = u'\0';                              // l c r j d; 0: as the text is attached
};

// Collects letters into words, words into lines, and lines into the whole.
class LineBuilder
{
public:
    explicit LineBuilder(const ParagraphText &text) : m_text(text) {}

    void addCharacter(char32_t character, const Format &format);
    void addSpace(const Format &format);
    void addTab(const Format &format);
    void addFraction(const std::u16string &halves, const Format &format); // "1/2", "1#2" or "+1^-2"
    void endParagraph(const Format &format);
    ParagraphFormat &paragraph() { return m_paragraph; } // of the paragraph that is being set

    Layout finished();

private:
    struct Word
    {
        Layout layout;
        double height = 0;     // of its tallest letter
        double spaceAfter = 0; // between it and the next
    };
    struct Line
    {
        Layout layout; // from x = 0
        double height = 0;
        double left = 0, right = 0; // what is kept free
        char16_t alignment = u'\0';
    };

    void add(const Layout &layout, const Format &format, double height);
    void addRules(double from, const Format &format);
    void endWord();
    void endLine(double height);
    double room() const;
    Place originOf(const Line &line, double columnWidth) const;

    const ParagraphText m_text;
    ParagraphFormat m_paragraph;
    std::vector<Line> m_lines;
    Line m_line;
    Word m_word;
    double m_space = 0; // behind the words of the line, before the word
    bool m_isFirstLine = true;
};

} // namespace text
