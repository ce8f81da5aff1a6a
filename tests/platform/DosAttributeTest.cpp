#include "platform/DosAttribute.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

// Version 5 of the record, attribute word 0x22, some time of birth.
const std::string record = "\0\0\5\0\5\0\0\0\x11\0\0\0\x22\0\0\0\xd8\x6f\xb5\xb7\xf2\x28\xd5\x01"s;

} // namespace

TEST(DosAttribute, ReadsHexadecimalText)
{
    EXPECT_EQ(parseDosAttribute("0x22"), 0x22u);
    EXPECT_EQ(parseDosAttribute("0x0"), 0u);
    EXPECT_EQ(parseDosAttribute("0x2000"), 0x2000u);
}

TEST(DosAttribute, IgnoresWhatFollowsTheHexadecimalText)
{
    EXPECT_EQ(parseDosAttribute("0x22\0"s), 0x22u);
    EXPECT_EQ(parseDosAttribute("0x6\0\0\3\0\3\0\0"s), 6u);
}

TEST(DosAttribute, ReadsTheBinaryRecord)
{
    ASSERT_EQ(record.size(), 24u);
    EXPECT_EQ(parseDosAttribute(record), 0x22u);
}

TEST(DosAttribute, RefusesARecordWithoutTheWord)
{
    std::string withoutWord = record;
    withoutWord[8] = 0x10;
    EXPECT_EQ(parseDosAttribute(withoutWord), std::nullopt);
}

TEST(DosAttribute, RefusesAnythingElse)
{
    for (const std::string &value : {""s, "22"s, "0x"s, "0xzz"s, "0x123456789"s, std::string(24, 'x'), record + '\0',
                                     record.substr(0, 23), std::string(23, '\0')})
        EXPECT_EQ(parseDosAttribute(value), std::nullopt) << value;
}
