#pragma once

#include "sdk/fx/FxExport.h"

#include <QString>

#include <vector>

// The host's text: a value of UTF-16 code units.
class FX_EXPORT CFxString
{
public:
    CFxString();
    CFxString(const QString &text);
    explicit CFxString(const char16_t *text); // NUL-terminated and copied; null gives the empty text
    CFxString(const CFxString &other);
    CFxString(CFxString &&other) noexcept;
    CFxString &operator=(const CFxString &other);
    CFxString &operator=(CFxString &&other) noexcept;
    ~CFxString();

    // Decodes 8-bit text in the ANSI code page of the host; null gives the empty text.
    static CFxString from_ansi_str(const char *text);

    // NUL-terminated; valid until the string is changed or destroyed.
    const char16_t *wide_strU() const;
    QString toQString() const;

    int getAllocLength() const; // in UTF-16 units, without the terminator

    // Negative, zero or positive as this text comes before, with or after the other.
    int compare(const CFxString &other) const;
    int compareNoCase(const CFxString &other) const;

    CFxString &makeUpper(); // in place, as makeLower
    CFxString &makeLower();

    // Where the other text first occurs, counted from 0; -1 when it does not.
    int find(const CFxString &other) const;

    // The parts between the separators, empty ones included; one part when there is no separator.
    std::vector<CFxString> SplitW(char16_t separator) const;

private:
    QString m_text;
};
