// Strings: lengths and positions count UTF-16 units.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/builtins/CharacterCodes.h"
#include "host/interpreter/text/WildcardPattern.h"

#include <QChar>

#include <algorithm>
#include <vector>

namespace lisp {

namespace {

[[noreturn]] void badValue(std::u16string_view expected, Value value)
{
    fail(u"bad argument value: " + std::u16string(expected) + u" " + printed(value));
}

// An optional argument that counts characters; `fallback` where it is missing or nil.
std::size_t position(Args arguments, std::uint32_t index, std::size_t fallback)
{
    if (arguments[index].isNil())
        return fallback;
    if (arguments.integer(index) < 0)
        badValue(u"non-negative", arguments[index]);
    return static_cast<std::size_t>(arguments.integer(index));
}

Value indexOrNil(std::size_t index)
{
    return index == std::u16string_view::npos ? Value::nil() : Value::integer(static_cast<std::int32_t>(index));
}

char16_t folded(char16_t unit)
{
    return QChar(unit).toUpper().unicode();
}

Value strcat(Machine &machine, Args arguments)
{
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        arguments.text(i); // all are strings before any work is done
    if (arguments.count() == 0)
        return machine.string(u"");
    Value result = arguments[0];
    for (std::uint32_t i = 1; i < arguments.count(); ++i)
        result = machine.heap().append(result, arguments.text(i));
    return result;
}

Value substr(Machine &machine, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    if (arguments.integer(1) < 1)
        badValue(u"positive", arguments[1]);
    const std::size_t start = static_cast<std::size_t>(arguments.integer(1)) - 1;
    const std::size_t length = position(arguments, 2, text.size());
    return machine.string(start < text.size() ? text.substr(start, length) : u"");
}

Value strlen(Machine &, Args arguments)
{
    std::size_t total = 0;
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        total += arguments.text(i).size();
    return Value::integer(static_cast<std::int32_t>(total));
}

// Character by character, so that the length stays as it is.
Value strcase(Machine &machine, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    const bool lower = arguments[1].isTrue();
    const auto [value, characters] = machine.heap().newString(text.size());
    std::transform(text.begin(), text.end(), characters, [lower](char16_t unit) {
        return lower ? QChar(unit).toLower().unicode() : QChar(unit).toUpper().unicode();
    });
    return value;
}

Value ascii(Machine &, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    return Value::integer(text.empty() ? 0 : text.front());
}

// Code 0 gives the empty string: a string has no room for it in the language's own view.
Value chr(Machine &machine, Args arguments)
{
    const char16_t unit = characterOfCode(arguments[0]);
    return machine.string({&unit, unit == 0 ? 0u : 1u});
}

Value search(Machine &, Args arguments)
{
    return indexOrNil(arguments.text(1).find(arguments.text(0), position(arguments, 2, 0)));
}

Value characterPosition(Machine &, Args arguments)
{
    const char16_t unit = characterOfCode(arguments[0]);
    const std::u16string_view text = arguments.text(1);
    const std::size_t start = position(arguments, 2, 0);
    if (arguments[3].isNil())
        return indexOrNil(text.find(unit, start));
    const std::size_t last = text.rfind(unit); // the search from the end goes back to START
    return last != text.npos && last >= start ? indexOrNil(last) : Value::nil();
}

// Replaces the first place only.
Value substitute(Machine &machine, Args arguments)
{
    const std::u16string_view replacement = arguments.text(0), pattern = arguments.text(1), text = arguments.text(2);
    const std::size_t at = pattern.empty() ? text.npos : text.find(pattern, position(arguments, 3, 0));
    if (at == text.npos)
        return arguments[2];
    std::u16string result(text.substr(0, at));
    result.append(replacement).append(text.substr(at + pattern.size()));
    return machine.string(result);
}

// A character without a counterpart in the second set becomes that set's last one.
Value translate(Machine &machine, Args arguments)
{
    const std::u16string_view from = arguments.text(0), to = arguments.text(1);
    std::u16string result(arguments.text(2));
    for (char16_t &unit : result)
        if (const std::size_t at = from.find(unit); at != from.npos && !to.empty())
            unit = to[std::min(at, to.size() - 1)];
    return machine.string(result);
}

template <bool Left, bool Right> Value trim(Machine &machine, Args arguments)
{
    const std::u16string_view set = arguments.text(0);
    std::u16string_view text = arguments.text(1);
    if (Left)
        text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
    if (Right)
        text = text.substr(0, text.find_last_not_of(set) + 1);
    return machine.string(text);
}

Value element(Machine &, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    const std::int32_t index = arguments.integer(1);
    if (index < 0 || static_cast<std::size_t>(index) >= text.size())
        badValue(u"position in the string", arguments[1]);
    return Value::integer(text[static_cast<std::size_t>(index)]);
}

Value mismatch(Machine &, Args arguments)
{
    std::u16string_view first = arguments.text(0), second = arguments.text(1);
    first.remove_prefix(std::min(position(arguments, 2, 0), first.size()));
    second.remove_prefix(std::min(position(arguments, 3, 0), second.size()));
    const bool ignoreCase = arguments[4].isTrue();
    const auto same = [ignoreCase](char16_t a, char16_t b) { return ignoreCase ? folded(a) == folded(b) : a == b; };
    const auto end = std::mismatch(first.begin(), first.end(), second.begin(), second.end(), same).first;
    return Value::integer(static_cast<std::int32_t>(end - first.begin()));
}

Value toCodes(Machine &machine, Args arguments)
{
    ListBuilder codes(machine.heap());
    for (const char16_t unit : arguments.text(0))
        codes.add(Value::integer(unit));
    return codes.list();
}

Value fromCodes(Machine &machine, Args arguments)
{
    std::u16string text;
    for (const Value code : ListItems(arguments.list(0)))
        text += characterOfCode(code);
    return machine.string(text);
}

Value wcmatch(Machine &machine, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    return machine.boolean(WildcardPattern(arguments.text(1)).matches(text));
}

Value princToString(Machine &machine, Args arguments)
{
    return machine.string(printed(arguments[0], PrintStyle::Plain));
}

Value prin1ToString(Machine &machine, Args arguments)
{
    return machine.string(printed(arguments[0]));
}

Value sortStrings(Machine &machine, Args arguments)
{
    std::vector<Value> items;
    for (const Value item : ListItems(arguments.list(0))) {
        if (!item.isString())
            return Value::nil();
        items.push_back(item);
    }
    std::stable_sort(items.begin(), items.end(),
                     [](Value a, Value b) { return a.asString()->view() < b.asString()->view(); });
    ListBuilder sorted(machine.heap());
    for (const Value item : items)
        sorted.add(item);
    return sorted.list();
}

// Whether a symbol table would take the name; flag 1 lets the vertical bar of external references through, but not at
// an end. The length does not matter.
Value isValidTableName(Machine &machine, Args arguments)
{
    const std::u16string_view name = arguments.text(0);
    const bool allowsBar = arguments[1].isTrue() && arguments.integer(1) == 1;
    const auto isBad = [allowsBar](char16_t unit) {
        return unit < u' ' || unit == u'\x7F' ||
               std::u16string_view(u"<>/\\\":;?*,=`").find(unit) != std::u16string_view::npos ||
               (unit == u'|' && !allowsBar);
    };
    return machine.boolean(!name.empty() && name.front() != u'|' && name.back() != u'|' &&
                           std::none_of(name.begin(), name.end(), isBad));
}

constexpr BuiltinRow rows[] = {
    {"strcat", "(strcat [STRING ...])", "Joins strings.", strcat},
    {"substr", "(substr STRING START [LENGTH])", "Gives a part of a string; the first character is number 1.", substr},
    {"strlen", "(strlen [STRING ...])", "Gives the number of characters of all strings together.", strlen},
    {"strcase", "(strcase STRING [LOWER])", "Gives the string in upper case, or in lower case if LOWER is not nil.",
     strcase},
    {"ascii", "(ascii STRING)", "Gives the code of the first character.", ascii},
    {"chr", "(chr CODE)", "Gives the character of a code as a string.", chr},
    {"vl-string-search", "(vl-string-search PATTERN STRING [START])",
     "Gives the position of the first place of a text, counted from 0, or nil.", search},
    {"vl-string-position", "(vl-string-position CODE STRING [START [FROMEND]])",
     "Gives the position of a character, counted from 0, or nil.", characterPosition},
    {"vl-string-subst", "(vl-string-subst NEW PATTERN STRING [START])", "Replaces the first place of a text.",
     substitute},
    {"vl-string-translate", "(vl-string-translate FROM TO STRING)",
     "Replaces each character of the first set by its counterpart in the second.", translate},
    {"vl-string-left-trim", "(vl-string-left-trim CHARACTERS STRING)", "Removes characters at the beginning.",
     trim<true, false>},
    {"vl-string-right-trim", "(vl-string-right-trim CHARACTERS STRING)", "Removes characters at the end.",
     trim<false, true>},
    {"vl-string-trim", "(vl-string-trim CHARACTERS STRING)", "Removes characters at both ends.", trim<true, true>},
    {"vl-string-elt", "(vl-string-elt STRING POSITION)", "Gives the code of the character at a position, from 0.",
     element},
    {"vl-string-mismatch", "(vl-string-mismatch STRING1 STRING2 [START1 [START2 [IGNORECASE]]])",
     "Gives the length of the common beginning.", mismatch},
    {"vl-string->list", "(vl-string->list STRING)", "Gives the list of the character codes.", toCodes},
    {"vl-list->string", "(vl-list->string CODES)", "Makes a string of character codes.", fromCodes},
    {"wcmatch", "(wcmatch STRING PATTERN)", "Gives T if the string matches a wildcard pattern.", wcmatch},
    {"vl-princ-to-string", "(vl-princ-to-string VALUE)", "Gives what princ would print.", princToString},
    {"vl-prin1-to-string", "(vl-prin1-to-string VALUE)", "Gives what prin1 would print.", prin1ToString},
    {"acad_strlsort", "(acad_strlsort LIST)", "Sorts a list of strings.", sortStrings},
    {"snvalid", "(snvalid NAME [FLAG])", "Gives T if a symbol table would take the name.", isValidTableName},
};

} // namespace

std::span<const BuiltinRow> stringBuiltins()
{
    return rows;
}

} // namespace lisp
