// Operations of the LISP interface on the profile store.

#include "host/kernel/SubstituteLispHost.h"

#include "host/kernel/HostServices.h"
#include "host/kernel/TextFormat.h"
#include "lisp/LispStatus.h"

int SubstituteLispHost::getProfileString(const char16_t *section, const char16_t *key, const char16_t *fallback,
                                         char16_t *buffer, int capacity)
{
    const std::optional<QString> value = m_services.profile.value(
        QStringView(section).toString(), QStringView(key).toString(), QStringView(fallback).toString());
    return value && copyText(value->toStdU16String(), buffer, capacity) ? StatusNormal : StatusError;
}

int SubstituteLispHost::setProfileString(const char16_t *section, const char16_t *key, const char16_t *value)
{
    const bool stored = m_services.profile.setValue(QStringView(section).toString(), QStringView(key).toString(),
                                                    QStringView(value).toString());
    return stored ? StatusNormal : StatusError;
}
