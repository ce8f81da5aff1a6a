#include "sdk/oda/OdString.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

TEST(OdString, HoldsACopyOfItsText)
{
    std::u16string source = u"Zürich";
    OdString text(source.c_str());
    source[0] = u'x';
    EXPECT_TRUE(std::u16string(text.c_str()) == u"Zürich");
    EXPECT_TRUE(std::u16string(OdString().c_str()).empty());
    EXPECT_TRUE(std::u16string(OdString(nullptr).c_str()).empty());
}

TEST(OdString, CopiesAndMovesAsAValue)
{
    OdString first(u"first");
    const OdString copy = first;
    OdString other(u"other");
    first = other;
    EXPECT_TRUE(std::u16string(copy.c_str()) == u"first");
    EXPECT_TRUE(std::u16string(first.c_str()) == u"other");
    EXPECT_TRUE(std::u16string(OdString(std::move(other)).c_str()) == u"other");
}
