// Any pattern has an answer for any text. The input is UTF-16, the pattern up to the first newline and the text behind
// it.

#include "host/interpreter/text/WildcardPattern.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

bool matches(const std::u16string &text, const std::u16string &pattern)
{
    return lisp::WildcardPattern(pattern).matches(text);
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

std::u16string quoted(const std::u16string &text)
{
    std::u16string result;
    for (const char16_t unit : text) {
        result += u'`';
        result += unit;
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::u16string input(size / 2, u'\0');
    std::memcpy(input.data(), data, input.size() * 2);
    const std::size_t end = std::min(input.find(u'\n'), input.size());
    const std::u16string pattern = input.substr(0, end);
    const std::u16string text = input.substr(std::min(end + 1, input.size()));

    const bool match = matches(text, pattern);
    require(matches(text, quoted(text)));
    require(!matches(text + u'x', quoted(text)));
    require(matches(text, u"*," + pattern));
    if (pattern.find_first_of(u",`[~") == std::u16string::npos) {
        require(matches(text, u'~' + pattern) != match);
        require(matches(text, pattern + u',' + pattern) == match);
        require(matches(u'x' + text + u'y', u'?' + pattern + u'@') == match);
    }
    return 0;
}
