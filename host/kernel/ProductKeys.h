#pragma once

#include <QStringList>

// The keys of the registry in which the host keeps its product's settings, with their roots. The host adds them when it
// starts: programs write values there and never make a key. Programs on 64 bits reach the settings of the whole machine
// below Wow6432Node.
inline QStringList productKeys()
{
    const QString userPath = QStringLiteral("Software\\Velmora GmbH\\Tarn Studio 2016");
    const QString machinePath = QStringLiteral("Software\\Wow6432Node\\Velmora GmbH\\Tarn Studio 2016");
    QStringList keys;
    for (const QString &root : {QStringLiteral("HKEY_CURRENT_USER\\"), QStringLiteral("HKEY_LOCAL_MACHINE\\")})
        keys << root + userPath << root + machinePath;
    return keys;
}
