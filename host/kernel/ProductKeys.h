#pragma once

#include <QString>

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

// Opens the registry that stands in the folder of the profile, with those keys below HKEY_CURRENT_USER and
// HKEY_LOCAL_MACHINE: programs write values there and never make a key.
void openProductRegistry();
