#include "platform/KeyLayout.h"

#include "platform/KeySymbols.h"
#include "platform/VirtualKeys.h"

#include <X11/keysym.h>

#include <algorithm>
#include <string_view>

namespace {

// Neighbours on a US keyboard, where a character's symbol has the character's number.
struct KeyRow
{
    unsigned firstCode;
    std::string_view characters;
};

constexpr KeyRow rows[] = {
    {10, "1234567890-="}, {24, "qwertyuiop[]"}, {38, "asdfghjkl;'`"}, {51, "\\zxcvbnm,./"}, {94, "<"}};

constexpr int punctuation[] = {VK_OEM_1, VK_OEM_PLUS, VK_OEM_COMMA, VK_OEM_MINUS, VK_OEM_PERIOD, VK_OEM_2,
                               VK_OEM_3, VK_OEM_4,    VK_OEM_5,     VK_OEM_6,     VK_OEM_7,      VK_OEM_102};

template <class Action> void forEachKey(Action action)
{
    for (const KeyRow &row : rows)
        for (unsigned place = 0; place < row.characters.size(); ++place)
            action(row.firstCode + place, static_cast<unsigned long>(row.characters[place]));
}

bool isDigit(unsigned long symbol)
{
    return symbol >= XK_0 && symbol <= XK_9;
}

int punctuationOf(unsigned long symbol)
{
    const auto key = std::ranges::find_if(punctuation, [symbol](int virtualKey) {
        return std::ranges::count(keySymbolsOf(virtualKey, NumLock::Off), symbol) > 0;
    });
    return key != std::end(punctuation) ? *key : 0;
}

// 0 for a symbol that has no code on every layout.
int virtualKeyOf(unsigned long symbol)
{
    if (isDigit(symbol))
        return static_cast<int>(symbol - XK_0) + '0';
    if (symbol >= XK_a && symbol <= XK_z)
        return static_cast<int>(symbol - XK_a) + 'A';
    return punctuationOf(symbol);
}

} // namespace

std::array<int, 256> characterKeys(const LayoutSymbol &symbolOf)
{
    std::array<int, 256> keys{};
    const auto isFree = [&keys](int virtualKey) { return std::ranges::count(keys, virtualKey) == 0; };
    forEachKey([&](unsigned code, unsigned long) {
        const unsigned long shifted = symbolOf(code, true);
        keys[code] = virtualKeyOf(isDigit(shifted) ? shifted : symbolOf(code, false));
    });
    forEachKey([&](unsigned code, unsigned long character) {
        if (keys[code] == 0 && isFree(virtualKeyOf(character)))
            keys[code] = virtualKeyOf(character);
    });
    forEachKey([&](unsigned code, unsigned long) {
        const auto left = std::ranges::find_if(punctuation, isFree);
        if (keys[code] == 0 && left != std::end(punctuation))
            keys[code] = *left;
    });
    return keys;
}
