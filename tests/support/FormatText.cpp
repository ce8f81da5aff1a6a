#include "tests/support/FormatText.h"

#include <gtest/gtest.h>

QString formatText(const char16_t *format, std::va_list values)
{
    QString result;
    for (; *format != u'\0'; ++format) {
        if (*format != u'%') {
            result += QChar(*format);
            continue;
        }
        ++format;
        if (*format == u's')
            result += QStringView(va_arg(values, const char16_t *)).toString();
        else if (*format == u'd')
            result += QString::number(va_arg(values, int));
        else if (*format == u'%')
            result += u'%';
        else
            ADD_FAILURE() << "a format that no handler uses: was a user's text taken for a format?";
        if (*format == u'\0')
            break;
    }
    return result;
}
