#include "functions/textsearch.h"

#include "tests/support/HandlerTest.h"

#include <QRegularExpression>
#include <QThread>

#include <memory>

// Expressions that would backtrack without end are stopped by the limits of Qt's engine. These tests run twice, with
// its just-in-time compiler and without.

namespace {

class RegularExpressionLimits : public HandlerTest
{
protected:
    std::string find(const std::u16string &pattern, const std::u16string &where)
    {
        return call(acetStrFind, {text(pattern), text(where), nil(), truth()}).at(1);
    }

    std::string replace(const std::u16string &pattern, const std::u16string &where, std::int16_t count = -1)
    {
        const Arguments arguments{text(pattern), text(u"X"), text(where), nil(), truth(), shortInteger(count)};
        return call(acetStrReplace, arguments).at(1);
    }
};

std::string result(const std::u16string &characters)
{
    return operation("retWStr", QString::fromStdU16String(characters));
}

// Every way to split the text into groups is a way to fail: 2 to the power of its length.
const std::u16string endless = u"(a+)+$";
const std::u16string text60 = std::u16string(60, u'a') + u'!';

} // namespace

TEST_F(RegularExpressionLimits, AnExpressionThatWouldBacktrackWithoutEndEndsAndTheStringIsUnchanged)
{
    const QRegularExpression expression(QString::fromStdU16String(endless));
    ASSERT_FALSE(expression.match(QString::fromStdU16String(text60)).isValid()) << "no limit was reached";
    EXPECT_EQ(replace(endless, text60), result(text60));
    EXPECT_EQ(replace(endless, text60, 5), result(text60));
    EXPECT_EQ(find(endless, text60), "retNil");
}

TEST_F(RegularExpressionLimits, WhatWasFoundBeforeThatStaysReplaced)
{
    EXPECT_EQ(replace(u"x|" + endless, u"x" + text60), result(u"X" + text60));
}

TEST_F(RegularExpressionLimits, AGroupRepeatedOverALongTextUsesNoStackOfTheProgram)
{
    const std::u16string longText(200'000, u'a');
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        EXPECT_EQ(replace(u"^(a|b)*c", longText), result(longText));
        EXPECT_EQ(find(u"^(a|b)*c", longText), "retNil");
    }));
    thread->setStackSize(256 * 1024);
    thread->start();
    thread->wait();
}

TEST_F(RegularExpressionLimits, HalfASurrogatePairInTheTextIsNoMatch)
{
    const std::u16string half = u"b" + std::u16string(1, 0xD800);
    EXPECT_EQ(find(u"b", half), "retNil");
    EXPECT_EQ(replace(u"b", half), result(half));
    EXPECT_EQ(replace(u"b", half, 1), result(half));
}
