#include "host/kernel/TextFormat.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

std::u16string format(const char16_t *text, ...)
{
    std::va_list arguments;
    va_start(arguments, text);
    std::u16string result = formatText(text, arguments);
    va_end(arguments);
    return result;
}

} // namespace

TEST(TextFormat, conversions)
{
    EXPECT_EQ(format(u"%s and %s", u"one", u"two"), u"one and two");
    EXPECT_EQ(format(u"%d %5d|%-4d|%04x", 7, 8, 9, 255), u"7     8|9   |00ff");
    EXPECT_EQ(format(u"%.2f %g", 1.005, 0.5), u"1.00 0.5");
    EXPECT_EQ(format(u"%c%c", 'o', 'k'), u"ok");
    EXPECT_EQ(format(u"100%%"), u"100%");
}

TEST(TextFormat, whatIsNoConversionStandsAsItIs)
{
    EXPECT_EQ(format(u"50%"), u"50%");
    EXPECT_EQ(format(u"%y%"), u"%y%");
    EXPECT_EQ(format(u""), u"");
}

TEST(TextFormat, narrowCopiesAreInTheCodePageAndLoseNothing)
{
    char *text = duplicateNarrow(u"\u00E4\u20AC\u4E00b");
    EXPECT_STREQ(text, "\xE4\x80\\U+4E00b");
    std::free(text);
}
