#include "host/interpreter/text/WildcardPattern.h"

#include <QRegularExpression>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace {

using View = std::u16string_view;

constexpr View textAlphabet = u"ab1-,[]`~*";

// An element of a pattern: any sequence, or one of these characters of the alphabet.
struct Element
{
    bool anySequence = false;
    std::u16string fitting = {};
};

// The meaning of patterns said once more, with regular expressions instead of a parser, and matched by plain trial of
// all possibilities.
class SlowPattern
{
public:
    explicit SlowPattern(const std::u16string &pattern)
    {
        static const QRegularExpression elements(u"\\[(?:[^]`]|`.)*\\]|`.|."_qs);
        m_alternatives.emplace_back();
        auto found = elements.globalMatch(QString::fromStdU16String(pattern));
        while (found.hasNext())
            add(found.next().captured());
    }

    bool matches(View text) const
    {
        for (const Alternative &alternative : m_alternatives)
            if (fits(alternative.elements, 0, text) != alternative.negated)
                return true;
        return false;
    }

private:
    struct Alternative
    {
        bool negated = false;
        std::vector<Element> elements = {};
    };

    void add(const QString &element)
    {
        Alternative &alternative = m_alternatives.back();
        if (element == u","_qs)
            m_alternatives.emplace_back();
        else if (element == u"~"_qs && alternative.elements.empty() && !alternative.negated)
            alternative.negated = true;
        else if (element == u"*"_qs)
            alternative.elements.push_back({.anySequence = true});
        else
            alternative.elements.push_back({.fitting = fitting(element)});
    }

    static std::u16string fitting(const QString &element)
    {
        if (element == u"?"_qs)
            return std::u16string(textAlphabet);
        if (element == u"#"_qs)
            return u"1";
        if (element == u"@"_qs)
            return u"ab";
        if (element == u"."_qs)
            return u"-,[]`~*";
        if (element.startsWith(u'[') && element.size() > 1)
            return membersOf(element.mid(1, element.size() - 2));
        return element.right(1).toStdU16String();
    }

    static std::u16string membersOf(const QString &content)
    {
        static const QRegularExpression members(u"(`.|[^`])(?:-(`.|[^`]))?"_qs);
        const bool negated = content.startsWith(u'~');
        std::u16string result;
        for (const QChar unit : textAlphabet) {
            bool listed = false;
            auto found = members.globalMatch(content, negated ? 1 : 0);
            while (found.hasNext()) {
                const QRegularExpressionMatch member = found.next();
                const QChar first = member.captured(1).back();
                listed |= unit >= first && unit <= (member.captured(2).isEmpty() ? first : member.captured(2).back());
            }
            if (listed != negated)
                result += unit.unicode();
        }
        return result;
    }

    static bool fits(const std::vector<Element> &elements, std::size_t at, View text)
    {
        if (at == elements.size())
            return text.empty();
        if (elements[at].anySequence)
            return fits(elements, at + 1, text) || (!text.empty() && fits(elements, at, text.substr(1)));
        return !text.empty() && elements[at].fitting.find(text[0]) != std::u16string::npos &&
               fits(elements, at + 1, text.substr(1));
    }

    std::vector<Alternative> m_alternatives;
};

// All texts of up to three characters.
std::vector<std::u16string> shortTexts()
{
    std::vector<std::u16string> texts{u""};
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (texts[i].size() < 3)
            for (const char16_t unit : textAlphabet)
                texts.push_back(texts[i] + unit);
    return texts;
}

rc::Gen<std::u16string> joined(const std::vector<std::u16string> &pieces)
{
    return rc::gen::map(rc::gen::container<std::vector<std::u16string>>(rc::gen::elementOf(pieces)),
                        [](const std::vector<std::u16string> &parts) {
                            return std::accumulate(parts.begin(), parts.end(), std::u16string());
                        });
}

// Most characters of a pattern are drawn alone, so that brackets and back-quotes meet in every way; some come together,
// so that ranges are no rarity.
rc::Gen<std::u16string> patterns()
{
    std::vector<std::u16string> pieces{u"a-b", u"[1-a", u"`]", u"[~"};
    for (const char16_t unit : u"[]~`-,*?#@.ab1"_qs.toStdU16String())
        pieces.emplace_back(1, unit);
    return joined(pieces);
}

// Fails when the two do not agree about one of the texts.
void expectAgreement(const std::u16string &pattern, const std::vector<std::u16string> &texts)
{
    const lisp::WildcardPattern fast(pattern);
    const SlowPattern slow(pattern);
    for (const std::u16string &text : texts)
        if (fast.matches(text) != slow.matches(text))
            RC_FAIL(QString::fromStdU16String(pattern + u" against " + text).toStdString());
}

// Ten million pairs: 100 times 90 patterns of up to ten pieces, each with 1111 texts.
RC_GTEST_PROP(WildcardPatternProperty, agreesWithTrialOfAllPossibilities, ())
{
    static const std::vector<std::u16string> texts = shortTexts();
    const auto several = rc::gen::container<std::vector<std::u16string>>(90, rc::gen::scale(0.1, patterns()));
    for (const std::u16string &pattern : *several)
        expectAgreement(pattern, texts);
}

// Half a million pairs: texts of two letters are long enough for what stands between several stars to be there more
// than once, and in part more often.
RC_GTEST_PROP(WildcardPatternProperty, agreesWithTrialOfAllPossibilitiesOnLongerTexts, ())
{
    const auto texts =
        rc::gen::container<std::vector<std::u16string>>(70, rc::gen::scale(0.2, joined({u"a", u"b", u"ab"})));
    const auto several = rc::gen::container<std::vector<std::u16string>>(
        70, rc::gen::scale(0.1, joined({u"*", u"a", u"b", u"?", u"*ab", u"[~a]", u","})));
    const std::vector<std::u16string> drawn = *texts;
    for (const std::u16string &pattern : *several)
        expectAgreement(pattern, drawn);
}

RC_GTEST_PROP(WildcardPatternProperty, anyPatternIsDefined, (std::u16string text))
{
    const std::u16string pattern = *patterns();
    lisp::WildcardPattern(pattern).matches(text);
    lisp::WildcardPattern(text).matches(pattern);
}

} // namespace
