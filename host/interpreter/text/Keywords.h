#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lisp {

// The keywords of one request, as initget names them: words between blanks. "LType" may be shortened to its capitals,
// LT, and "LTYPE,LT" says the same. Behind a word that begins with "_" stand the names that programs get for the words
// before it, in the same order: "Oui Non _Yes No".
class Keywords
{
public:
    Keywords() = default;
    explicit Keywords(std::u16string_view list);

    bool isEmpty() const { return m_keywords.empty(); }
    // The keyword that was typed, in full, as a program gets it. Upper and lower case do not matter.
    std::optional<std::u16string> match(std::u16string_view typed) const;

private:
    struct Keyword
    {
        std::u16string word;
        std::u16string name; // what a program gets
        std::u16string abbreviation;
        std::size_t abbreviationStart = 0; // in the word; npos when it stands apart, behind a comma
    };
    static Keyword keywordOf(std::u16string_view item);
    static bool matches(const Keyword &keyword, std::u16string_view typed);

    std::vector<Keyword> m_keywords;
};

} // namespace lisp
