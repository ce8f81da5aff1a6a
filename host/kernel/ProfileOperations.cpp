// Operations of the LISP interface on the profile store.

#include "host/kernel/SubstituteLispHost.h"

#include "host/kernel/HostServices.h"
#include "host/kernel/TextFormat.h"
#include "lisp/LispStatus.h"

namespace {

// Not by QString::fromUtf16, which takes a first U+FEFF for a byte order mark.
QString toQString(const char16_t *text)
{
    return QStringView(text).toString();
}

} // namespace

int SubstituteLispHost::getProfileString(const char16_t *section, const char16_t *key, const char16_t *fallback,
                                         char16_t *buffer, int capacity)
{
    const std::optional<QString> value =
        m_services.profile.value(toQString(section), toQString(key), toQString(fallback));
    return value && copyText(value->toStdU16String(), buffer, capacity) ? StatusNormal : StatusError;
}

int SubstituteLispHost::setProfileString(const char16_t *section, const char16_t *key, const char16_t *value)
{
    const bool stored = m_services.profile.setValue(toQString(section), toQString(key), toQString(value));
    return stored ? StatusNormal : StatusError;
}
