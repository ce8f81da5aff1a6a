#pragma once

#include <cstddef>
#include <cstring>

// The place of a virtual function in the table of its class. Host and module may come from different compilers, and
// meet at nothing but these places. A pointer to a virtual function holds the offset in the table, on some processors
// plus one.
template <class Class, class Function> std::size_t placeOf(Function Class::*operation)
{
    std::size_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset / sizeof(void *);
}
