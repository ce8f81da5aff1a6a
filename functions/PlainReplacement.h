#pragma once

#include <QString>

// The same as QString::replace() of one text by another, upper and lower case different, in less time where a short
// pattern is replaced by a text of the same length: that is written over what it replaces, while QString first lists
// all places.
void replacePlainText(QString &text, const QString &pattern, const QString &replacement);
