#pragma once

// A whole call of a function that takes a name and gives what the host's profile store holds by it: the empty text when
// it was never written, nil when the store fails. The store cuts the text to `units` UTF-16 units, terminator included.
int callForStoredText(const char16_t *section, int units);
