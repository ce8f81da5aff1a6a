#include "host/interpreter/SharedStrings.h"

#include "host/interpreter/Heap.h"
#include "host/interpreter/Objects.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace lisp {

namespace {

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

} // namespace

Value SharedStrings::find(std::string_view ascii) const
{
    const Place &place = m_places[placeOf(ascii, Places)];
    const bool isThere = place.size == ascii.size() && std::memcmp(place.ascii.data(), ascii.data(), ascii.size()) == 0;
    return isThere ? place.string : Value::nil();
}

Value SharedStrings::string(std::string_view ascii)
{
    if (const Value found = find(ascii); found.isTrue())
        return found;
    const Value made = m_heap.asciiString(ascii);
    if (ascii.size() <= MostShared) {
        Place &place = m_places[placeOf(ascii, Places)];
        place.size = static_cast<std::uint8_t>(ascii.size());
        std::copy(ascii.begin(), ascii.end(), place.ascii.begin());
        place.string = made;
    }
    return made;
}

} // namespace lisp
