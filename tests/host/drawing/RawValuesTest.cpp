#include "host/drawing/RawValues.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>

namespace drawing {
namespace {

double realIn(std::string_view text)
{
    return realOf({10, text, text}, FileFormat::Kind::Text);
}

TEST(RawValues, RealsInAllTheirForms)
{
    EXPECT_EQ(realIn("0.0"), 0);
    EXPECT_TRUE(std::signbit(realIn("-0.0")));
    EXPECT_EQ(realIn("  +12.5 "), 12.5);
    EXPECT_EQ(realIn("-.5"), -0.5);
    EXPECT_EQ(realIn("5."), 5);
    EXPECT_EQ(realIn("1e3"), 1000);
    EXPECT_EQ(realIn("-1.5E-2"), -0.015);
    for (const char *none : {"", "-", ".", "-.", "abc"})
        EXPECT_EQ(realIn(none), 0) << none;
    EXPECT_EQ(realIn("1.5.2"), 1.5);
    EXPECT_EQ(realIn("12abc"), 12);
}

// However many digits there are, the nearest double to what they say.
TEST(RawValues, RealsAreTheNearestThereAre)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 200'000; ++i) {
        const std::size_t count = 1 + random() % 20, point = random() % (count + 1);
        std::string text = random() % 2 == 0 ? "-" : "";
        for (std::size_t digit = 0; digit < count; ++digit) {
            if (digit == point)
                text += '.';
            text += static_cast<char>('0' + random() % 10);
        }
        double wanted = 0;
        std::from_chars(text.data(), text.data() + text.size(), wanted);
        ASSERT_EQ(realIn(text), wanted) << text;
    }
}

TEST(RawValues, WhatIsNoNumberOrDoesNotFitIsTold)
{
    const auto isNumber = [](int code, std::string_view text) {
        return isReadable({code, text, text}, FileFormat::Kind::Text);
    };
    for (const char *real : {"0.0", " -12.5 ", "5", "5.", "+.5", "1e20", "-1.5E-2", "123456789012345678901234567890.0"})
        EXPECT_TRUE(isNumber(10, real)) << real;
    for (const char *none : {"", " ", "-", ".", "abc", "1.5.2", "12abc", "1,5", "1e999", "nan", "-inf"})
        EXPECT_FALSE(isNumber(10, none)) << none;
    for (const char *integer : {"0", "     7", " -1", "+3", "32767", "-32768", "65535", "7.0"})
        EXPECT_TRUE(isNumber(70, integer)) << integer;
    for (const char *none : {"", "x", "7.5", "65536", "-32769", "99999999999"})
        EXPECT_FALSE(isNumber(70, none)) << none;
    EXPECT_TRUE(isNumber(90, "4294967295"));
    EXPECT_FALSE(isNumber(90, "4294967296"));
    EXPECT_TRUE(isNumber(160, "9223372036854775807"));
    EXPECT_TRUE(isNumber(1, "abc"));
    EXPECT_TRUE(isNumber(5, "xyz"));
}

TEST(RawValues, RealsOfBinaryFilesAreFinite)
{
    const auto isNumber = [](double real) {
        const std::string_view bytes(reinterpret_cast<const char *>(&real), sizeof real);
        return isReadable({40, bytes, bytes}, FileFormat::Kind::Binary);
    };
    EXPECT_TRUE(isNumber(-1e300));
    EXPECT_FALSE(isNumber(NAN));
    EXPECT_FALSE(isNumber(INFINITY));
}

} // namespace
} // namespace drawing
