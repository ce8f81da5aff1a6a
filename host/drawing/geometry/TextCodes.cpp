#include "host/drawing/geometry/TextCodes.h"

#include <algorithm>

namespace geometry {

namespace {

bool isDigit(char16_t character)
{
    return character >= u'0' && character <= u'9';
}

// Appends what the code behind two percent signs stands for; gives how long it is, 0 when it is none.
std::size_t takeCode(std::u16string_view rest, std::u16string &result)
{
    if (rest.size() >= 3 && std::all_of(rest.begin(), rest.begin() + 3, isDigit)) {
        result += static_cast<char16_t>((rest[0] - u'0') * 100 + (rest[1] - u'0') * 10 + (rest[2] - u'0'));
        return 3;
    }
    switch (rest.empty() ? u'\0' : rest[0]) {
    case u'd':
    case u'D':
        result += u'\u00B0';
        return 1;
    case u'p':
    case u'P':
        result += u'\u00B1';
        return 1;
    case u'c':
    case u'C':
        result += u'\u2300';
        return 1;
    case u'%':
        result += u'%';
        return 1;
    case u'u':
    case u'U':
    case u'o':
    case u'O':
    case u'k':
    case u'K':
        return 1;
    default:
        return 0;
    }
}

} // namespace

std::u16string withoutTextCodes(std::u16string_view text)
{
    std::u16string result;
    while (!text.empty()) {
        const std::size_t taken = text.starts_with(u"%%") ? takeCode(text.substr(2), result) : 0;
        if (taken == 0)
            result += text.front();
        text.remove_prefix(taken == 0 ? 1 : taken + 2);
    }
    return result;
}

} // namespace geometry
