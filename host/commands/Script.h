#pragma once

#include <optional>
#include <string>

namespace commands {

// A file of what would be typed. A blank and the end of a line are Enter; lines that begin with a semicolon are
// comments; an expression in parentheses is one answer, however many blanks and lines it has; so is a text in quotes,
// which are not part of it.
class Script
{
public:
    explicit Script(std::u16string text);

    enum class Form {
        Word, // up to a blank
        Line  // blanks belong to it
    };
    // What is typed next, empty for Enter alone; none at the end.
    std::optional<std::u16string> next(Form form);

    static bool isExpression(const std::u16string &typed) { return typed.starts_with(u'('); }

private:
    bool isAtEnd() const { return m_place >= m_text.size(); }
    void skipComments();
    std::u16string expression();
    std::u16string quoted();
    std::u16string upTo(std::u16string_view ends);

    std::u16string m_text; // its lines end with \n
    std::size_t m_place = 0;
};

} // namespace commands
