#include "host/kernel/input/TypedLines.h"

#include "host/kernel/input/Prompter.h"
#include "lisp/LispStatus.h"

std::optional<std::u16string> TypedLines::fetchLine()
{
    constexpr bool allowBlanks = true;
    std::u16string line;
    if (m_prompter.string(allowBlanks, u"", line) != StatusNormal)
        return std::nullopt;
    return line;
}
