#include "host/interpreter/text/Keywords.h"

#include <QStringView>

#include <algorithm>

namespace lisp {

namespace {

QStringView view(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

bool isPrefix(std::u16string_view prefix, std::u16string_view text)
{
    return view(text).startsWith(view(prefix), Qt::CaseInsensitive);
}

std::vector<std::u16string_view> wordsOf(std::u16string_view text)
{
    std::vector<std::u16string_view> words;
    for (std::size_t start = text.find_first_not_of(u' '); start < text.size();) {
        const std::size_t end = std::min(text.find(u' ', start), text.size());
        words.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(u' ', end);
    }
    return words;
}

} // namespace

Keywords::Keywords(std::u16string_view list)
{
    std::vector<std::u16string_view> words = wordsOf(list);
    const auto global = std::find_if(words.begin(), words.end(), [](auto word) { return word.front() == u'_'; });
    for (auto word = words.begin(); word != global; ++word)
        m_keywords.push_back(keywordOf(*word));
    if (global == words.end())
        return;
    global->remove_prefix(1);
    const std::size_t count = std::min(m_keywords.size(), static_cast<std::size_t>(words.end() - global));
    for (std::size_t i = 0; i < count; ++i)
        m_keywords[i].name = keywordOf(global[static_cast<std::ptrdiff_t>(i)]).word;
}

Keywords::Keyword Keywords::keywordOf(std::u16string_view item)
{
    if (const std::size_t comma = item.find(u','); comma != item.npos) {
        const std::u16string word(item.substr(0, comma));
        return {word, word, std::u16string(item.substr(comma + 1)), item.npos};
    }
    const auto isCapital = [](char16_t unit) { return !QChar(unit).isLower(); };
    const auto start = std::find_if(item.begin(), item.end(), isCapital);
    const auto end = std::find_if_not(start, item.end(), isCapital);
    const std::u16string word(item);
    if (start == end) // no capitals: nothing to shorten it to
        return {word, word, word, 0};
    return {word, word, std::u16string(start, end), static_cast<std::size_t>(start - item.begin())};
}

// Between the capitals alone and the whole word everything fits: "eXit" is X, XI, XIT and EX, EXI, EXIT.
bool Keywords::matches(const Keyword &keyword, std::u16string_view typed)
{
    const std::u16string_view word(keyword.word);
    if (keyword.abbreviationStart == word.npos)
        return isPrefix(typed, word) && isPrefix(keyword.abbreviation, typed);
    const std::u16string_view fromCapitals = word.substr(keyword.abbreviationStart);
    return (isPrefix(typed, fromCapitals) && typed.size() >= keyword.abbreviation.size()) ||
           (isPrefix(typed, word) && typed.size() >= keyword.abbreviationStart + keyword.abbreviation.size());
}

std::optional<std::u16string> Keywords::match(std::u16string_view typed) const
{
    if (typed.empty())
        return std::nullopt;
    const bool byName = typed.front() == u'_'; // the way to type a keyword in every language
    if (byName)
        typed.remove_prefix(1);
    for (const Keyword &keyword : m_keywords)
        if (byName ? isPrefix(typed, keyword.name) && typed.size() == keyword.name.size() : matches(keyword, typed))
            return keyword.name;
    if (byName)
        for (const Keyword &keyword : m_keywords)
            if (matches(keyword, typed))
                return keyword.name;
    return std::nullopt;
}

} // namespace lisp
