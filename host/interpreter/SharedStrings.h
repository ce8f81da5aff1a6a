#pragma once

#include "host/interpreter/Value.h"

#include <array>
#include <string_view>

namespace lisp {

class Heap;

// Short strings that are asked for again and again: who asks gets an object that is there already, as strings never
// change. Everything is forgotten at each collection.
class SharedStrings
{
public:
    explicit SharedStrings(Heap &heap) : m_heap(heap) {}

    Value string(std::string_view ascii);
    void clear() { m_strings.fill(Value::nil()); }

private:
    Heap &m_heap;
    std::array<Value, 256> m_strings; // each in the place that its hash says, nil or the latest one there
};

} // namespace lisp
