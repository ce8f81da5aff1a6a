#pragma once

#include "host/kernel/profile/SettingsText.h"

#include <vector>

// A line that cannot be read. It is passed over.
struct DamagedLine
{
    int number; // from 1
    QString reason;
};

struct ReadSettings
{
    SettingsText text;
    std::vector<DamagedLine> damagedLines;
};

// Reads what SettingsText writes and what people make of it: blanks around names and values do not count, lines may end
// as on Windows, remarks begin with ; or #, a section may come in several pieces.
ReadSettings readSettings(const QByteArray &bytes);
