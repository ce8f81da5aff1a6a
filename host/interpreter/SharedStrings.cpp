#include "host/interpreter/SharedStrings.h"

#include "host/interpreter/Heap.h"
#include "host/interpreter/Objects.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace lisp {

namespace {

constexpr std::size_t MostShared = 32; // characters

// Of the length and the last eight characters, in which names of a kind differ.
std::size_t placeOf(std::string_view text, std::size_t places)
{
    constexpr std::uint64_t Multiplier = 0x9E37'79B9'7F4A'7C15; // spreads small differences over the upper bits
    std::uint64_t end = 0;
    if (text.size() >= sizeof end)
        std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
    else
        for (const char each : text)
            end = end << 8 | static_cast<unsigned char>(each);
    return ((end + text.size()) * Multiplier >> 32) % places;
}

bool isSame(std::u16string_view text, std::string_view ascii)
{
    return std::equal(text.begin(), text.end(), ascii.begin(), ascii.end(),
                      [](char16_t unit, char letter) { return unit == static_cast<unsigned char>(letter); });
}

} // namespace

Value SharedStrings::string(std::string_view ascii)
{
    if (ascii.size() > MostShared)
        return m_heap.asciiString(ascii);
    Value &shared = m_strings[placeOf(ascii, m_strings.size())];
    if (!shared.isString() || !isSame(shared.asString()->view(), ascii))
        shared = m_heap.asciiString(ascii);
    return shared;
}

} // namespace lisp
