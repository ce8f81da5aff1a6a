#include "functions/strings.h"

#include "tests/support/HandlerTest.h"

#include <QLocale>

#include <limits>

namespace {

class StrFormat : public HandlerTest
{
protected:
    // The text that comes of the arguments. Fails when the call does anything but fetch, answer and release null.
    std::string formatted(const Arguments &arguments)
    {
        const Operations operations = call(acetStrFormat, arguments);
        EXPECT_EQ(operations.size(), 3u);
        EXPECT_EQ(operations.front(), "getArgs");
        EXPECT_EQ(operations.back(), "releaseRb null");
        return operations.size() == 3 ? operations[1] : std::string();
    }
    std::string formatted(const Argument &value) { return formatted({text(u"%1"), value}); }
};

std::string result(const char *characters)
{
    return operation("retWStr", characters);
}

} // namespace

TEST_F(StrFormat, FillsPlaceholdersByNumber)
{
    EXPECT_EQ(formatted({text(u"%1 + %2 = %3"), shortInteger(1), shortInteger(2), shortInteger(3)}),
              result("1 + 2 = 3"));
    EXPECT_EQ(formatted({text(u"%2%1"), text(u"a"), text(u"b")}), result("ba"));
    EXPECT_EQ(formatted({text(u"%1%1 %1"), text(u"a")}), result("aa a"));
}

TEST_F(StrFormat, ARealHasSixSignificantDigits)
{
    EXPECT_EQ(formatted({text(u"x=%1"), real(1.5)}), result("x=1.5"));
    EXPECT_EQ(formatted(real(1234567.0)), result("1.23457e+06"));
    EXPECT_EQ(formatted(real(123456.0)), result("123456"));
    EXPECT_EQ(formatted(real(2.0)), result("2"));
    EXPECT_EQ(formatted(real(-0.1)), result("-0.1"));
    EXPECT_EQ(formatted(real(1.0 / 3)), result("0.333333"));
    EXPECT_EQ(formatted(real(0.0001)), result("0.0001"));
    EXPECT_EQ(formatted(real(0.00001)), result("1e-05"));
    EXPECT_EQ(formatted(real(std::numeric_limits<double>::infinity())), result("inf"));
    EXPECT_EQ(formatted(real(std::numeric_limits<double>::quiet_NaN())), result("nan"));
}

TEST_F(StrFormat, ARealHasAPointInEveryLocale)
{
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(formatted(real(1.5)), result("1.5"));
    EXPECT_EQ(formatted(real(123456.0)), result("123456"));
    QLocale::setDefault(QLocale::system());
}

TEST_F(StrFormat, IntegersOf16And32Bits)
{
    EXPECT_EQ(formatted(shortInteger(-32768)), result("-32768"));
    EXPECT_EQ(formatted(longInteger(2147483647)), result("2147483647"));
    EXPECT_EQ(formatted(longInteger(std::numeric_limits<std::int32_t>::min())), result("-2147483648"));
}

TEST_F(StrFormat, AListNilAndAnythingElseRenderAsTheEmptyString)
{
    EXPECT_EQ(formatted(point2d(1, 2)), result(""));
    EXPECT_EQ(formatted(nil()), result(""));
    EXPECT_EQ(formatted(truth()), result(""));
    EXPECT_EQ(formatted(Argument{TypeNone}), result(""));
    EXPECT_EQ(formatted({text(u"<%1>"), nil()}), result("<>"));
}

TEST_F(StrFormat, EveryNodeOfAListCountsAsAValue)
{
    EXPECT_EQ(formatted({text(u"%1|%2|%3|%4"), Argument{TypeListBegin}, text(u"a"), Argument{TypeListEnd}, text(u"b")}),
              result("|a||b"));
}

TEST_F(StrFormat, APlaceholderWithoutAValueStaysAndAValueWithoutAPlaceholderIsIgnored)
{
    EXPECT_EQ(formatted({text(u"%1%3"), text(u"a"), text(u"b")}), result("a%3"));
    EXPECT_EQ(formatted({text(u"%0 %% % %a"), text(u"a")}), result("%0 %% % %a"));
}

TEST_F(StrFormat, AValueThatContainsALaterPlaceholderIsReplacedInTurn)
{
    EXPECT_EQ(formatted({text(u"%1"), text(u"%2"), text(u"z")}), result("z"));
    EXPECT_EQ(formatted({text(u"%2"), text(u"z"), text(u"%1")}), result("%1"));
    EXPECT_EQ(formatted({text(u"%12"), text(u"%"), text(u"z")}), result("z"));
}

TEST_F(StrFormat, The1stPlaceholderIsReplacedBeforeThe10th)
{
    Arguments arguments{text(u"%10 %11 %9")};
    for (const char16_t letter : u"abcdefghijk"_qs.toStdU16String())
        arguments.push_back(text(std::u16string(1, letter)));
    EXPECT_EQ(formatted(arguments), result("a0 a1 i"));
}

TEST_F(StrFormat, NoPlaceholdersGivesTheFormatStringUnchanged)
{
    EXPECT_EQ(formatted({text(u"no placeholders")}), result("no placeholders"));
    EXPECT_EQ(formatted({text(u"")}), result(""));
    EXPECT_EQ(formatted({text(u"\uFEFFa %1"), text(u"\uFEFF")}), operation("retWStr", u"\uFEFFa \uFEFF"_qs));
}

TEST_F(StrFormat, WithoutAFormatStringIsRefused)
{
    EXPECT_EQ(call(acetStrFormat, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetStrFormat, {shortInteger(1), text(u"%1")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
