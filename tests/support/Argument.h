#pragma once

#include "lisp/TypeCode.h"
#include "lisp/resbuf.h"

#include <QString>

#include <string>
#include <vector>

// A LISP value as it arrives at a handler.
struct Argument
{
    TypeCode type;
    LispValue value = {};
    std::u16string text = {}; // of a string
};

using Arguments = std::vector<Argument>;

inline Argument text(const std::u16string &characters)
{
    return {TypeString, {}, characters};
}

inline Argument text(const QString &characters)
{
    return text(characters.toStdU16String());
}

inline Argument shortInteger(std::int16_t number)
{
    return {TypeShort, {.longInteger = number}};
}

inline Argument longInteger(std::int32_t number)
{
    return {TypeLong, {.longInteger = number}};
}

inline Argument real(double number)
{
    return {TypeReal, {.real = number}};
}

inline Argument point2d(double x, double y)
{
    return {TypePoint2d, {.point = {x, y, 0}}};
}

inline Argument point3d(double x, double y, double z)
{
    return {TypePoint3d, {.point = {x, y, z}}};
}

inline Argument entity(std::int64_t first, std::int64_t second)
{
    return {TypeEntity, {.name = {{first, second}}}};
}

inline Argument selectionSet(std::int64_t first, std::int64_t second)
{
    return {TypeSelectionSet, {.name = {{first, second}}}};
}

inline Argument nil()
{
    return {TypeNil};
}

inline Argument truth()
{
    return {TypeTrue};
}
