#pragma once

#include <cstdarg>
#include <string>
#include <string_view>

// NUL-terminated copies, allocated with malloc for a result-buffer node to own. Narrow text is in the ANSI code page;
// what the code page lacks becomes \U+XXXX.
char16_t *duplicateWide(std::u16string_view text);
char *duplicateNarrow(std::u16string_view text);
char *duplicateNarrow(std::string_view text); // 8-bit text as it stands

// Copies a text with its terminator into a buffer of `capacity` units and cuts what does not fit; false when there is
// no room for the terminator.
bool copyText(std::u16string_view text, char16_t *buffer, int capacity);

// printf's formatting for UTF-16: %s takes UTF-16 text; d i u x X c f e g and %% as in C, with flags, width and
// precision. A conversion that is none of these is printed as it stands.
std::u16string formatText(const char16_t *format, std::va_list arguments);
