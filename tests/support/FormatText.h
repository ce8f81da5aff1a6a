#pragma once

#include <QString>

#include <cstdarg>

// What a command line shows for a format and its arguments: %s takes UTF-16 text, %d an int, %% is a percent sign. Any
// other directive fails the test.
QString formatText(const char16_t *format, std::va_list values);
