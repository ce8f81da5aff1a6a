#pragma once

#include <QChar>

#include <cstddef>
#include <string_view>

// Names in the registry are the same when they differ in case alone, unit by unit and whatever the language.

inline char16_t foldedUnit(char16_t unit)
{
    if (unit < 128)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    return static_cast<char16_t>(QChar::toUpper(static_cast<char32_t>(unit)));
}

struct RegistryNameHash
{
    std::size_t operator()(std::u16string_view name) const
    {
        std::size_t hash = 14695981039346656037u; // FNV-1a
        for (const char16_t unit : name)
            hash = (hash ^ foldedUnit(unit)) * 1099511628211u;
        return hash;
    }
};

struct RegistryNameEqual
{
    bool operator()(std::u16string_view left, std::u16string_view right) const
    {
        if (left.size() != right.size())
            return false;
        for (std::size_t index = 0; index < left.size(); ++index)
            if (left[index] != right[index] && foldedUnit(left[index]) != foldedUnit(right[index]))
                return false;
        return true;
    }
};
