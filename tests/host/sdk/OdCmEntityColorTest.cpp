#include "sdk/oda/OdCmEntityColor.h"

#include "host/palette/Palette.h"

#include <gtest/gtest.h>

#include <map>

namespace {

int lookUp(int red, int green, int blue)
{
    return OdCmEntityColor::lookUpACI(static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                                      static_cast<std::uint8_t>(blue));
}

} // namespace

TEST(OdCmEntityColor, ThePrimariesHaveTheirLowestIndex)
{
    const int primaries[][3] = {{255, 0, 0},   {255, 255, 0},   {0, 255, 0},     {0, 255, 255},  {0, 0, 255},
                                {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};
    int index = 0;
    for (const auto &[red, green, blue] : primaries)
        EXPECT_EQ(lookUp(red, green, blue), ++index);
}

TEST(OdCmEntityColor, HuesGoRoundInStepsOf15Degrees)
{
    EXPECT_EQ(lookUp(255, 127, 0), 30);
    EXPECT_EQ(lookUp(255, 191, 0), 40);
    EXPECT_EQ(lookUp(191, 255, 0), 60);
    EXPECT_EQ(lookUp(0, 255, 127), 110);
    EXPECT_EQ(lookUp(0, 127, 255), 150);
    EXPECT_EQ(lookUp(127, 0, 255), 190);
    EXPECT_EQ(lookUp(255, 0, 63), 240);
}

TEST(OdCmEntityColor, EachHueHasFiveBrightnessesPureAndHalfSaturated)
{
    const int reds[][3] = {{255, 127, 127}, {165, 0, 0},  {165, 82, 82}, {127, 0, 0}, {127, 63, 63},
                           {76, 0, 0},      {76, 38, 38}, {38, 0, 0},    {38, 19, 19}};
    int index = 10;
    for (const auto &[red, green, blue] : reds)
        EXPECT_EQ(lookUp(red, green, blue), ++index);
}

TEST(OdCmEntityColor, TheGreysStandAtTheEnd)
{
    EXPECT_EQ(lookUp(51, 51, 51), 250);
    EXPECT_EQ(lookUp(91, 91, 91), 251);
    EXPECT_EQ(lookUp(132, 132, 132), 252);
    EXPECT_EQ(lookUp(173, 173, 173), 253);
    EXPECT_EQ(lookUp(214, 214, 214), 254);
}

TEST(OdCmEntityColor, EveryColourOfThePaletteIsFoundExactly)
{
    const auto number = [](const palette::Color &color) { return color.red << 16 | color.green << 8 | color.blue; };
    std::map<int, int> lowest; // index by colour: some colours stand in the palette twice
    for (int index = 255; index > 0; --index)
        lowest[number(palette::colors[static_cast<std::size_t>(index)])] = index;
    EXPECT_EQ(palette::colors[255].red, 255);
    for (std::size_t index = 1; index < palette::Count; ++index) {
        const palette::Color &color = palette::colors[index];
        EXPECT_EQ(lookUp(color.red, color.green, color.blue), lowest[number(color)]) << index;
    }
}

TEST(OdCmEntityColor, WhatLiesBetweenGoesToTheNearest)
{
    EXPECT_EQ(lookUp(250, 3, 2), 1);
    EXPECT_EQ(lookUp(164, 123, 1), 42);
    EXPECT_EQ(lookUp(0, 0, 0), 18); // there is no black: a dark red, the first of the darkest
}
