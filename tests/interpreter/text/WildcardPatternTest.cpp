#include "host/interpreter/text/WildcardPattern.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char16_t *text, *pattern;
    bool matches;
};

class WildcardPattern : public testing::TestWithParam<Row>
{
};

TEST_P(WildcardPattern, matches)
{
    EXPECT_EQ(lisp::WildcardPattern(GetParam().pattern).matches(GetParam().text), GetParam().matches);
}

constexpr Row single[] = {
    {u"Name", u"Name", true}, {u"Name", u"name", false},  {u"Name", u"N*", true},   {u"Name", u"*e", true},
    {u"Name", u"N*m*", true}, {u"Name", u"Nam", false},   {u"Name", u"N??e", true}, {u"Name", u"N?e", false},
    {u"", u"", true},         {u"", u"*", true},          {u"a", u"", false},       {u"", u"?", false},
    {u"7", u"#", true},       {u"x", u"#", false},        {u"\u0667", u"#", false}, {u"x", u"@", true},
    {u"\u00E4", u"@", true},  {u"7", u"@", false},        {u"-", u".", true},       {u"x", u".", false},
    {u"7", u".", false},      {u" ", u".", true},         {u"A1-b", u"@#.@", true}, {u"a*b", u"a`*b", true},
    {u"axb", u"a`*b", false}, {u"aXbXc", u"a*X*c", true}, {u"abc", u"***", true},
};

constexpr Row negated[] = {
    {u"Name", u"~*m*", false}, {u"Nome", u"~*a*", true}, {u"~x", u"`~x", true}, {u"x", u"`~x", false},
    {u"a~b", u"a~b", true},    {u"", u"~", false},       {u"a", u"~", true},    {u"~a", u"~~a", false},
};

constexpr Row alternatives[] = {
    {u"Name", u"???,~*m*,N*", true},
    {u"b", u"a,b", true},
    {u"c", u"a,b", false},
    {u"", u"a,", true},
    {u"", u"a,b", false},
    {u"a,b", u"a`,b", true},
    {u"x,y", u"*`,*", true},
    {u"xy", u"*`,*", false},
    {u"c", u"a,~b", true},
    {u"b", u"a,~b", false},
    {u",", u"[,]", true},
};

constexpr Row brackets[] = {
    {u"b", u"[abc]", true},  {u"d", u"[abc]", false},       {u"b", u"[~abc]", false},   {u"d", u"[~abc]", true},
    {u"m", u"[a-z]", true},  {u"M", u"[a-z]", false},       {u"5", u"[a-f0-9]", true},  {u"-", u"[a-]", true},
    {u"-", u"[-a]", true},   {u"-", u"[~-a]", false},       {u"]", u"[`]]", true},      {u"~", u"[`~a]", true},
    {u"-", u"[a`-z]", true}, {u"m", u"[a`-z]", false},      {u"*", u"[*]", true},       {u"x", u"[*]", false},
    {u"x", u"[]", false},    {u"x", u"[~]", true},          {u"", u"[~]", false},       {u"m", u"[z-a]", false},
    {u"[", u"[", true},      {u"[abc", u"[abc", true},      {u"[a", u"[?", true},       {u"a`", u"a`", true},
    {u"[`", u"[`", true},    {u"x[1]", u"x[[]#[]]", false}, {u"x[1]", u"x[[]#]", true},
};

INSTANTIATE_TEST_SUITE_P(single, WildcardPattern, testing::ValuesIn(single));
INSTANTIATE_TEST_SUITE_P(negated, WildcardPattern, testing::ValuesIn(negated));
INSTANTIATE_TEST_SUITE_P(alternatives, WildcardPattern, testing::ValuesIn(alternatives));
INSTANTIATE_TEST_SUITE_P(brackets, WildcardPattern, testing::ValuesIn(brackets));

TEST(WildcardPatternTime, growsWithTextTimesPatternAtMost)
{
    const lisp::WildcardPattern pattern(u"*a*a*a*a*a*a*b");
    const std::u16string text(100'000, u'a');
    EXPECT_FALSE(pattern.matches(text));
    EXPECT_TRUE(pattern.matches(text + u"b"));
}

TEST(WildcardPatternTime, ofAPatternOfOpenBracketsGrowsWithItsLength)
{
    const std::u16string open(1'000'000, u'[');
    EXPECT_TRUE(lisp::WildcardPattern(open).matches(open));
    EXPECT_FALSE(lisp::WildcardPattern(open).matches(u"["));
}

} // namespace
