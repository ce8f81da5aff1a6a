#include "sdk/oda/OdString.h"

OdString::OdString() = default;
OdString::OdString(const char16_t *text) : m_text(text != nullptr ? text : u"") {}
OdString::OdString(const OdString &other) = default;
OdString::OdString(OdString &&other) noexcept = default;
OdString &OdString::operator=(const OdString &other) = default;
OdString &OdString::operator=(OdString &&other) noexcept = default;
OdString::~OdString() = default;

const char16_t *OdString::c_str() const
{
    return m_text.c_str();
}
