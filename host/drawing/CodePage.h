#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace drawing {

// A code page as tables: characters of one byte or, in East Asian ones, of two.
class CodePage
{
public:
    // By the value of $DWGCODEPAGE, as "ANSI_1252" or "dos850"; one that is not known is taken for 1252.
    static const CodePage &named(std::string_view name);

    // Takes one character off the front of the text, which is not empty. A byte that is no character gives the control
    // character of its code, as Windows does it.
    char16_t takeCharacter(std::string_view &bytes) const;
    // The one or two bytes of a character; none when the code page lacks it.
    std::optional<std::string_view> bytesOf(char16_t character) const;

private:
    explicit CodePage(unsigned number);

    std::array<char16_t, 256> m_single{}; // 0: begins a pair
    std::vector<char16_t> m_pairs;        // by both bytes; empty when there are none
    std::unordered_map<char16_t, std::string> m_bytes;
};

} // namespace drawing
