#include "host/interpreter/text/LinearUnits.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char16_t *text;
    int mode;
    std::optional<double> number;
};

class Distof : public testing::TestWithParam<Row>
{
};

TEST_P(Distof, readsTheWholeTextOrNothing)
{
    EXPECT_EQ(lisp::distof(GetParam().text, *lisp::linearUnits(GetParam().mode)), GetParam().number);
}

const Row valid[] = {
    {u"1.7500E+01", 1, 17.5}, {u"17.50", 2, 17.5},      {u"-17.5", 2, -17.5},     {u"+3", 2, 3.0},
    {u" 42. ", 2, 42.0},      {u".5", 2, 0.5},          {u"1e3", 2, 1000.0},      {u"1/2", 2, 0.5},
    {u"1'-5.50\"", 3, 17.5},  {u"1'5.50\"", 3, 17.5},   {u"1'-5 1/2\"", 4, 17.5}, {u"1'5-1/2\"", 4, 17.5},
    {u"1'-5.50\"", 4, 17.5},  {u"1'-5 1/2\"", 3, 17.5}, {u"-1'-6\"", 4, -18.0},   {u"1'", 4, 12.0},
    {u"1.5'", 4, 18.0},       {u"1'6", 4, 18.0},        {u"1' 6\"", 4, 18.0},     {u"6\"", 4, 6.0},
    {u"6", 3, 6.0},           {u"1/4\"", 4, 0.25},      {u"0'-0 1/4\"", 4, 0.25}, {u"17 1/2", 5, 17.5},
    {u"17-1/2", 5, 17.5},     {u"5 0/4", 5, 5.0},       {u"3/2", 5, 1.5},         {u"17.25", 5, 17.25},
};

const Row invalid[] = {
    {u"", 2, std::nullopt},        {u"abc", 2, std::nullopt},     {u"-", 2, std::nullopt},
    {u"--5", 2, std::nullopt},     {u"5x", 2, std::nullopt},      {u"5 6", 2, std::nullopt},
    {u"1'-6\"", 2, std::nullopt},  {u"6\"", 1, std::nullopt},     {u"1'", 5, std::nullopt},
    {u"1/0", 5, std::nullopt},     {u"5/", 5, std::nullopt},      {u"5/-1/2", 5, std::nullopt},
    {u"1.5 1/2", 5, std::nullopt}, {u"1'-", 4, std::nullopt},     {u"1'-6\"x", 4, std::nullopt},
    {u"'", 4, std::nullopt},       {u"\"", 4, std::nullopt},      {u"1'6'", 4, std::nullopt},
    {u"1e999", 2, std::nullopt},   {u"1'--6\"", 4, std::nullopt},
};

INSTANTIATE_TEST_SUITE_P(valid, Distof, testing::ValuesIn(valid));
INSTANTIATE_TEST_SUITE_P(invalid, Distof, testing::ValuesIn(invalid));

} // namespace
