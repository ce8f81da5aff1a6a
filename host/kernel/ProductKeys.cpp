#include "host/kernel/ProductKeys.h"

#include "platform/RegistrySetup.h"
#include "storage/ProfileFolder.h"

#include <QStringList>

void openProductRegistry()
{
    QStringList keys;
    for (const QString &root : {QStringLiteral("HKEY_CURRENT_USER\\"), QStringLiteral("HKEY_LOCAL_MACHINE\\")})
        keys << root + userProductKey() << root + machineProductKey();
    setUpRegistry(profileFolder(), keys);
}
