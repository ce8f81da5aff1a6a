#pragma once

#include <QChar>
#include <QStringView>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Names in the registry are the same when they differ in case alone, unit by unit and whatever the language. Looking
// them up is most of what reading a value costs, so both functions take four units at a time.

inline char16_t foldedUnit(char16_t unit)
{
    if (unit < 128)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    return static_cast<char16_t>(QChar::toUpper(static_cast<char32_t>(unit)));
}

// Up to four units, each in 16 bits of the number. They are put together from loads of fixed sizes: a processor waits
// for what was stored in pieces and is loaded whole.
inline std::uint64_t packedUnits(const char16_t *units, std::size_t count)
{
    if (count == 4) {
        std::uint64_t word = 0;
        std::memcpy(&word, units, sizeof word);
        return word;
    }
    std::uint64_t word = 0;
    for (std::size_t index = count; index > 0; --index)
        word = word << 16 | units[index - 1];
    return word;
}

// The same in upper case.
inline std::uint64_t foldedUnits(const char16_t *units, std::size_t count)
{
    std::uint64_t word = packedUnits(units, count);
    constexpr std::uint64_t Ones = 0x0001000100010001;
    if ((word & 0xff80 * Ones) == 0) {
        // Bit 7 of each 16 is set by the first sum from 'a' on, by the second behind 'z'.
        const std::uint64_t lower = (word + (0x80 - u'a') * Ones) & ~(word + (0x80 - u'z' - 1) * Ones) & 0x80 * Ones;
        return word - (lower >> 2);
    }
    char16_t folded[4] = {};
    std::transform(units, units + count, folded, foldedUnit);
    return packedUnits(folded, 4);
}

struct RegistryNameHash
{
    std::size_t operator()(std::u16string_view name) const
    {
        std::uint64_t hash = name.size();
        for (std::size_t index = 0; index < name.size(); index += 4) {
            hash = (hash ^ foldedUnits(name.data() + index, std::min<std::size_t>(4, name.size() - index))) *
                   0x9e3779b97f4a7c15;
            hash ^= hash >> 32;
        }
        return hash;
    }
};

// Case counts.
inline bool isSameText(std::u16string_view left, std::u16string_view right)
{
    return left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;
}

struct RegistryNameEqual
{
    bool operator()(std::u16string_view left, std::u16string_view right) const
    {
        if (isSameText(left, right))
            return true;
        if (left.size() != right.size())
            return false;
        for (std::size_t index = 0; index < left.size(); index += 4) {
            const std::size_t count = std::min<std::size_t>(4, left.size() - index);
            if (foldedUnits(left.data() + index, count) != foldedUnits(right.data() + index, count))
                return false;
        }
        return true;
    }
};

// A NUL-terminated text; null is an empty one. Qt counts its units faster than the standard library.
inline std::u16string_view textArgument(const char16_t *text)
{
    const QStringView view(text);
    return {text != nullptr ? text : u"", static_cast<std::size_t>(view.size())};
}
