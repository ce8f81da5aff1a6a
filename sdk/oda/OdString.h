#pragma once

#include "sdk/oda/OdRxExport.h"

#include <string>

// The SDK's text: a value of UTF-16 code units.
class ODRX_EXPORT OdString
{
public:
    OdString();
    explicit OdString(const char16_t *text); // NUL-terminated and copied; null gives the empty text
    OdString(const OdString &other);
    OdString(OdString &&other) noexcept;
    OdString &operator=(const OdString &other);
    OdString &operator=(OdString &&other) noexcept;
    ~OdString();

    const char16_t *c_str() const; // NUL-terminated; valid until the string is changed or destroyed

private:
    std::u16string m_text;
};
