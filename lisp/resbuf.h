#pragma once

#include <cstddef>
#include <cstdint>

struct LispPoint
{
    double x;
    double y;
    double z;
};

// Name of an entity or of a selection set: copied as a pair, passed by address.
struct LispName
{
    std::int64_t words[2];
};

union LispValue {
    double real;
    LispPoint point;
    // A host stores every integer sign-extended in longInteger, whatever its type code says: some handlers read the
    // 32-bit word, others its lower half.
    std::int16_t shortInteger;
    std::int32_t longInteger;
    char16_t *string;   // NUL-terminated, owned by the node
    char *narrowString; // the same in lists with 8-bit strings
    LispName name;
};

// One node of a list of LISP values. The host allocates, reads and frees nodes: the layout and the names are its own.
struct resbuf
{
    resbuf *rbnext; // null at the end of the list
    std::int16_t restype;
    LispValue resval;
};

static_assert(offsetof(resbuf, rbnext) == 0);
static_assert(offsetof(resbuf, restype) == 8 && sizeof(resbuf::restype) == 2);
static_assert(offsetof(resbuf, resval) == 16 && sizeof(LispValue) == 24);
static_assert(sizeof(resbuf) == 40 && alignof(resbuf) == 8);
static_assert(sizeof(LispPoint) == 24 && sizeof(LispName) == 16);
