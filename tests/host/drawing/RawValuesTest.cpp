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

} // namespace
} // namespace drawing
