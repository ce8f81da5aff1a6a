#include "host/kernel/TextFormat.h"

#include "host/interpreter/files/TextEncoding.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

template <class Character> Character *allocateText(std::size_t length)
{
    auto *text = static_cast<Character *>(std::malloc((length + 1) * sizeof(Character)));
    if (!text)
        throw std::bad_alloc();
    text[length] = 0;
    return text;
}

// One conversion, "%-8.3f" for example, as 8-bit text for snprintf.
std::string narrowed(std::u16string_view conversion)
{
    std::string text;
    for (const char16_t unit : conversion)
        text += static_cast<char>(unit);
    return text;
}

template <class Argument> std::u16string formatted(const std::string &conversion, Argument argument)
{
    char buffer[512];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // checked by formatText: one conversion, of the argument's type
    const int length = std::snprintf(buffer, sizeof buffer, conversion.c_str(), argument);
#pragma GCC diagnostic pop
    const auto shown = std::clamp<std::size_t>(static_cast<std::size_t>(std::max(length, 0)), 0, sizeof buffer - 1);
    return std::u16string(buffer, buffer + shown);
}

} // namespace

char16_t *duplicateWide(std::u16string_view text)
{
    char16_t *copy = allocateText<char16_t>(text.size());
    std::copy(text.begin(), text.end(), copy);
    return copy;
}

char *duplicateNarrow(std::u16string_view text)
{
    const QByteArray bytes = lisp::encodedAsWindows1252(text);
    return duplicateNarrow(std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
}

char *duplicateNarrow(std::string_view text)
{
    char *copy = allocateText<char>(text.size());
    std::copy(text.begin(), text.end(), copy);
    return copy;
}

bool copyText(std::u16string_view text, char16_t *buffer, int capacity)
{
    if (capacity < 1)
        return false;
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity) - 1);
    *std::copy_n(text.data(), length, buffer) = u'\0';
    return true;
}

std::u16string formatText(const char16_t *format, std::va_list arguments)
{
    const std::u16string_view text(format);
    std::u16string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t percent = std::min(text.find(u'%', at), text.size());
        result.append(text, at, percent - at);
        if (percent == text.size())
            break;
        const std::size_t kind = std::min(text.find_first_not_of(u"-+ #0123456789.", percent + 1), text.size());
        at = std::min(kind + 1, text.size());
        const std::u16string_view conversion = text.substr(percent, at - percent);
        switch (kind < text.size() ? text[kind] : u'\0') {
        case u's':
            if (const auto *argument = va_arg(arguments, const char16_t *))
                result += argument;
            break;
        case u'd':
        case u'i':
        case u'u':
        case u'x':
        case u'X':
        case u'c':
            result += formatted(narrowed(conversion), va_arg(arguments, int));
            break;
        case u'f':
        case u'e':
        case u'g':
            result += formatted(narrowed(conversion), va_arg(arguments, double));
            break;
        case u'%':
            result += u'%';
            break;
        default:
            result += conversion;
        }
    }
    return result;
}
