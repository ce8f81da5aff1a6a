#include "host/kernel/selection/SelectionMode.h"

#include "host/interpreter/Errors.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

struct ModeName
{
    std::u16string_view name;
    SelectionMode::Kind kind;
};

using Kind = SelectionMode::Kind;
constexpr ModeName modes[] = {
    {u"", Kind::Interactive}, {u"X", Kind::Everything}, {u"A", Kind::AllThawed},      {u"ALL", Kind::AllThawed},
    {u"W", Kind::Window},     {u"C", Kind::Crossing},   {u"WP", Kind::WindowPolygon}, {u"CP", Kind::CrossingPolygon},
    {u"F", Kind::Fence},      {u"L", Kind::Last},       {u"P", Kind::Previous},       {u"I", Kind::Implied},
};

[[noreturn]] void badMode()
{
    lisp::fail(u"bad SSGET mode string");
}

std::u16string upperCase(std::u16string_view text)
{
    std::u16string upper(text);
    std::ranges::transform(upper, upper.begin(), [](char16_t unit) {
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    });
    return upper;
}

} // namespace

SelectionMode::SelectionMode(std::u16string_view text)
{
    std::u16string mode = upperCase(text);
    std::erase(mode, u'_');
    if (mode.starts_with(u"+.")) // a pick alone
        mode.erase(0, 2);
    const std::size_t colon = std::min(mode.find(u':'), mode.size());
    const auto found = std::ranges::find(modes, std::u16string_view(mode).substr(0, colon), &ModeName::name);
    if (found == std::end(modes))
        badMode();
    m_kind = found->kind;
    for (std::size_t place = colon; place < mode.size(); place += 2) {
        if (mode[place] != u':' || place + 1 == mode.size())
            badMode();
        take(mode[place + 1]);
    }
}

void SelectionMode::take(char16_t modifier)
{
    constexpr std::u16string_view others = u"DENRUVAP$"; // they concern what a person sees and picks
    if (modifier == u'S')
        m_takesOne = true;
    else if (modifier == u'L')
        m_refusesLocked = true;
    else if (others.find(modifier) == others.npos)
        badMode();
}
