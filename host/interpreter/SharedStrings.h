#pragma once

#include "host/interpreter/Value.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace lisp {

class Heap;

// Short strings that are asked for again and again: who asks gets an object that is there already, as strings never
// change. Everything is forgotten at each collection.
class SharedStrings
{
public:
    explicit SharedStrings(Heap &heap) : m_heap(heap) {}

    Value find(std::string_view ascii) const; // nil when it has not been asked for lately
    Value string(std::string_view ascii);
    void clear() { m_places.fill({}); }

private:
    static constexpr std::size_t Places = 256, MostShared = 23; // characters

    struct Place
    {
        std::uint8_t size = 0;
        std::array<char, MostShared> ascii;
        Value string; // nil: none yet
    };

    Heap &m_heap;
    std::array<Place, Places> m_places; // the latest string of each hash
};

} // namespace lisp
