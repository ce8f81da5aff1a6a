#pragma once

#include <optional>
#include <string>

namespace lisp {

// What is typed at the command line, for read-line and read-char without a file.
class LineInput
{
public:
    // The rest of the line that readCharacter() has begun, or a new line; nothing when nobody types any more.
    std::optional<std::u16string> readLine();
    // Each line ends with a newline.
    std::optional<char16_t> readCharacter();

protected:
    ~LineInput() = default;

private:
    // Waits for a line and gives it without its end.
    virtual std::optional<std::u16string> fetchLine() = 0;

    std::u16string m_line;
    std::size_t m_read = 0; // characters of the line that were given already
};

} // namespace lisp
