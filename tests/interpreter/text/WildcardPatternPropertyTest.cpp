#include "host/interpreter/text/WildcardPattern.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace {

using View = std::u16string_view;

// The meaning of patterns by plain trial of all possibilities, for the small alphabet of these tests.
bool contains(View members, char16_t unit)
{
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (i + 2 < members.size() && members[i + 1] == u'-') {
            if (unit >= members[i] && unit <= members[i + 2])
                return true;
            i += 2;
        } else if (members[i] == unit) {
            return true;
        }
    }
    return false;
}

bool slowMatch(View pattern, View text)
{
    if (pattern.empty())
        return text.empty();
    if (pattern[0] == u'*')
        return slowMatch(pattern.substr(1), text) || (!text.empty() && slowMatch(pattern, text.substr(1)));
    if (text.empty())
        return false;
    const bool digit = text[0] >= u'0' && text[0] <= u'9';
    const bool letter = (text[0] >= u'a' && text[0] <= u'z') || (text[0] >= u'A' && text[0] <= u'Z');
    std::size_t length = 1;
    bool fits = text[0] == pattern[0];
    const std::size_t close = pattern[0] == u'[' ? pattern.find(u']') : View::npos;
    if (close != View::npos) {
        const bool negated = pattern[1] == u'~';
        fits = contains(pattern.substr(negated ? 2 : 1, close - (negated ? 2 : 1)), text[0]) != negated;
        length = close + 1;
    } else if (pattern[0] == u'`' && pattern.size() > 1) {
        fits = text[0] == pattern[1];
        length = 2;
    } else if (View(u"?#@.").find(pattern[0]) != View::npos) {
        const bool fitting[] = {true, digit, letter, !digit && !letter};
        fits = fitting[View(u"?#@.").find(pattern[0])];
    }
    return fits && slowMatch(pattern.substr(length), text.substr(1));
}

bool slowAlternative(View alternative, View text)
{
    const bool negated = !alternative.empty() && alternative[0] == u'~';
    return slowMatch(alternative.substr(negated ? 1 : 0), text) != negated;
}

// All texts of up to four characters of an alphabet.
std::vector<std::u16string> shortTexts(View alphabet)
{
    std::vector<std::u16string> texts{u""};
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (texts[i].size() < 4)
            for (const char16_t unit : alphabet)
                texts.push_back(texts[i] + unit);
    return texts;
}

// Alternatives made of whole pieces, so that back-quotes and commas never meet brackets.
rc::Gen<std::u16string> alternatives()
{
    const std::vector<std::u16string> pieces{u"a",     u"b",     u"1",  u"*",    u"?",    u"#",
                                             u"@",     u".",     u"-",  u"[ab]", u"[~a]", u"[a-b1]",
                                             u"[~-1]", u"[b-a]", u"`*", u"`a",   u"*a",   u"~"};
    return rc::gen::map(rc::gen::container<std::vector<std::u16string>>(rc::gen::elementOf(pieces)),
                        [](const std::vector<std::u16string> &parts) {
                            std::u16string pattern;
                            for (const std::u16string &part : parts)
                                pattern += part;
                            return pattern;
                        });
}

RC_GTEST_PROP(WildcardPatternProperty, agreesWithTrialOfAllPossibilities, ())
{
    const std::u16string first = *rc::gen::scale(0.06, alternatives()), second = *rc::gen::scale(0.06, alternatives());
    const std::u16string pattern = first + u"," + second;
    static const std::vector<std::u16string> texts = shortTexts(u"ab1-");
    const lisp::WildcardPattern one(first), both(pattern);
    for (const std::u16string &text : texts) {
        RC_ASSERT(one.matches(text) == slowAlternative(first, text));
        RC_ASSERT(both.matches(text) == (slowAlternative(first, text) || slowAlternative(second, text)));
    }
}

RC_GTEST_PROP(WildcardPatternProperty, anyPatternIsDefined, (std::u16string text))
{
    const std::u16string pattern =
        *rc::gen::container<std::u16string>(rc::gen::elementOf(std::u16string(u"[]~`-,*?#@.ab")));
    lisp::WildcardPattern(pattern).matches(text);
    lisp::WildcardPattern(text).matches(pattern);
}

} // namespace
