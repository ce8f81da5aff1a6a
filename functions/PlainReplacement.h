#pragma once

#include <QString>

// Replaces each place of a pattern, from left to right, by a text of the same length; the same as QString::replace(),
// which lists all places before it writes. Upper and lower case differ. Neither text is empty.
void overwriteAll(QString &text, const QString &pattern, const QString &replacement);
