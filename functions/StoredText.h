#pragma once

// Sets the result to what the host's profile store holds by a name: the empty text when it was never written, nil when
// the store fails. The store cuts the text to `units` UTF-16 units, terminator included.
void returnStoredText(const char16_t *section, const char16_t *name, int units);
