#include "host/drawing/GroupWriter.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <iterator>
#include <random>

namespace drawing {

namespace {

std::string written(double value)
{
    FileFormat format;
    format.lineEnd = "\n";
    const TextCodec codec;
    std::string bytes;
    EXPECT_TRUE(GroupWriter(format, codec).append(bytes, 40, value));
    return bytes;
}

std::string shortest(double value)
{
    char digits[32];
    const auto [end, error] = std::abs(value) < 1
                                  ? std::to_chars(digits, std::end(digits), value)
                                  : std::to_chars(digits, std::end(digits), value, std::chars_format::fixed);
    const std::string text(digits, end);
    return " 40\n" + text + (text.find_first_of(".e") == std::string::npos ? ".0\n" : "\n");
}

TEST(GroupWriter, RealsHaveTheShortestDigitsAndAPointOrAnExponent)
{
    EXPECT_EQ(written(0), " 40\n0.0\n");
    EXPECT_EQ(written(-0.0), " 40\n-0.0\n");
    EXPECT_EQ(written(12.5), " 40\n12.5\n");
    EXPECT_EQ(written(-0.001), " 40\n-0.001\n");
    EXPECT_EQ(written(99999.999), " 40\n99999.999\n");
    EXPECT_EQ(written(-100000), " 40\n-100000.0\n");
    EXPECT_EQ(written(-999999999999.999), " 40\n-999999999999.999\n");
    EXPECT_EQ(written(1e12), " 40\n1e+12\n");
    EXPECT_EQ(written(1.0 / 3), " 40\n0.3333333333333333\n");
}

TEST(GroupWriter, WholeThousandthsAndTheirNeighboursAreWrittenAsAllReals)
{
    std::mt19937_64 random(1);
    for (int round = 0; round < 100'000; ++round) {
        const std::int64_t limit = random() % 2 ? 100'000'000 : 999'999'999'999'000;
        const std::int64_t digits = static_cast<std::int64_t>(random()) % limit;
        const double value = static_cast<double>(digits) / (random() % 2 ? 1000.0 : 10'000.0);
        for (const double each : {value, std::nextafter(value, INFINITY), std::nextafter(value, -INFINITY)})
            ASSERT_EQ(written(each), shortest(each));
    }
}

} // namespace

} // namespace drawing
