#pragma once

#include <QStringList>

// The keys of the registry in which the host keeps its product's settings, without their roots. Programs on 64 bits
// reach the settings of the whole machine below Wow6432Node.
inline QString userProductKey()
{
    return QStringLiteral("Software\\Velmora GmbH\\Tarn Studio 2016");
}

inline QString machineProductKey()
{
    return QStringLiteral("Software\\Wow6432Node\\Velmora GmbH\\Tarn Studio 2016");
}

// Those keys with the roots below which the host adds them when it starts: programs write values there and never make a
// key.
inline QStringList productKeys()
{
    QStringList keys;
    for (const QString &root : {QStringLiteral("HKEY_CURRENT_USER\\"), QStringLiteral("HKEY_LOCAL_MACHINE\\")})
        keys << root + userProductKey() << root + machineProductKey();
    return keys;
}
