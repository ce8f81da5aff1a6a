#pragma once

#include <QString>

// How texts of any UTF-16 content stand on a line of a settings file. A backslash begins an escape: \n, \r, \t, \uXXXX
// for one unit, and before any other ASCII sign that is no letter or digit the sign itself. Written so is what would
// break the line or could not be seen there or written in UTF-8: control and format characters, line separators, lone
// surrogates, blanks at the ends. All else stands as it is.

// What else has a meaning of its own at the text's place.
enum class EscapedPlace { Name, Value };

QString escaped(QStringView text, EscapedPlace place);

// The text that was escaped. False, with the reason in `failure`, for an escape that there is not.
bool unescape(QStringView text, QString &result, QString &failure);
