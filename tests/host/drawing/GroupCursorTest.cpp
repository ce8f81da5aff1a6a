#include "host/drawing/GroupCursor.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace drawing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Pairs = std::vector<std::pair<int, std::string>>;

Pairs pairsOf(std::string_view bytes, FileFormat format = {FileFormat::Kind::Text, FileFormat::Codes::Bare, "\n"})
{
    GroupCursor cursor(bytes, format);
    Pairs pairs;
    for (RawGroup group; cursor.next(group);)
        pairs.emplace_back(group.code, group.value);
    return pairs;
}

TEST(TextGroups, ReadsCodesHoweverTheyArePadded)
{
    EXPECT_EQ(pairsOf("0\nLINE\n  8\n A \n\t1001  \r\nX\r\n-3\n\n"),
              (Pairs{{0, "LINE"}, {8, " A "}, {1001, "X"}, {-3, ""}}));
}

// Codes in three columns are read in a way of their own; a tab in front makes them usual lines.
TEST(TextGroups, ReadsThreeColumnsAsAnyOtherLine)
{
    constexpr std::string_view characters = " 019-+x\t\r";
    for (const std::string_view lineEnd : {"\n", "\r\n"})
        for (const char first : characters)
            for (const char second : characters)
                for (const char third : characters) {
                    const std::string line = {first, second, third};
                    const std::string rest = std::string(lineEnd) + "8" + std::string(lineEnd) + "70\n";
                    EXPECT_EQ(pairsOf(line + rest), pairsOf('\t' + line + rest)) << '"' << line << '"';
                }
}

TEST(TextGroups, AValueMayLackItsLineEndOrBeCutOff)
{
    EXPECT_EQ(pairsOf("0\nLIN"), (Pairs{{0, "LIN"}}));
    EXPECT_EQ(pairsOf("0\n"), (Pairs{{0, ""}}));
    EXPECT_EQ(pairsOf("0"), (Pairs{{0, ""}}));
    EXPECT_THAT(pairsOf(""), IsEmpty());
}

TEST(TextGroups, PassesOverALineThatIsNoCodeAndCountsIt)
{
    const std::string_view bytes = "0\nLINE\nwhat\n\n 8\nA\n10x\n";
    EXPECT_EQ(pairsOf(bytes), (Pairs{{0, "LINE"}, {8, "A"}}));
    TextGroups groups(bytes, {FileFormat::Kind::Text, FileFormat::Codes::Bare, "\n"});
    for (RawGroup group; groups.next(group);) {
    }
    EXPECT_EQ(groups.badLines(), 3);
    EXPECT_EQ(groups.firstBadPlace(), bytes.data() + 7);
}

TEST(TextGroups, ACodeOfTooManyDigitsIsNone)
{
    EXPECT_EQ(pairsOf("99999999999999999999\n8\nA\n"), (Pairs{{8, "A"}}));
}

TEST(TextGroups, LinesMayEndWithACarriageReturnAlone)
{
    EXPECT_EQ(pairsOf("0\rLINE\r 8\rA\r", detectFormat("0\rLINE\r")), (Pairs{{0, "LINE"}, {8, "A"}}));
}

TEST(TextGroups, TheBytesOfAllGroupsAreTheBytesOfTheText)
{
    const std::string bytes = " 0\r\nLINE\r\n 10\n1.0\n999\nend";
    GroupCursor cursor(bytes, detectFormat(bytes));
    std::string all;
    for (RawGroup group; cursor.next(group);)
        all += group.bytes;
    EXPECT_EQ(all, bytes);
}

TEST(DetectFormat, TellsLineEndsAndPaddingFromTheFirstLine)
{
    const FileFormat format = detectFormat("  0\r\nSECTION\r\n");
    EXPECT_EQ(format.lineEnd, "\r\n");
    EXPECT_EQ(format.codes, FileFormat::Codes::Padded);
    const FileFormat bare = detectFormat("\xEF\xBB\xBF"
                                         "0\nSECTION\n");
    EXPECT_EQ(bare.lineEnd, "\n");
    EXPECT_EQ(bare.codes, FileFormat::Codes::Bare);
}

std::string binary(std::string_view groups)
{
    return std::string(BinarySentinel) + std::string(groups);
}

Pairs binaryPairs(std::string_view groups)
{
    const std::string bytes = binary(groups);
    return pairsOf(std::string_view(bytes).substr(groupsBegin(bytes)), detectFormat(bytes));
}

TEST(BinaryGroups, ReadsEachKindOfValueBySize)
{
    using namespace std::string_literals;
    EXPECT_EQ(
        binaryPairs("\0\0SECTION\0"s + "\x46\0\x05\0"s + "\x5A\0\x01\x02\x03\x04"s + "\x22\x01\x01"s +
                    "\x36\x01\x03xyz"s + "\x28\0"s + "12345678"s),
        (Pairs{
            {0, "SECTION"}, {70, "\x05\0"s}, {90, "\x01\x02\x03\x04"}, {290, "\x01"}, {310, "xyz"}, {40, "12345678"}}));
}

TEST(BinaryGroups, OldFilesHaveCodesOfOneByte)
{
    using namespace std::string_literals;
    EXPECT_EQ(binaryPairs("\0SECTION\0\x08"s + "0\0\xFF\xE9\x03"s + "APP\0"s),
              (Pairs{{0, "SECTION"}, {8, "0"}, {1001, "APP"}}));
}

TEST(BinaryGroups, AValueThatReachesBeyondTheEndEndsTheWalk)
{
    using namespace std::string_literals;
    EXPECT_EQ(binaryPairs("\0\0EOF\0\x28\0"s + "1234"s), (Pairs{{0, "EOF"}}));
    EXPECT_EQ(binaryPairs("\0\0EOF\0\x36\x01\xFFxyz"s), (Pairs{{0, "EOF"}}));
    EXPECT_EQ(binaryPairs("\0\0EOF\0\x01\0"s + "no end"s), (Pairs{{0, "EOF"}}));
    EXPECT_EQ(binaryPairs("\0\0EOF\0\x01"s), (Pairs{{0, "EOF"}}));
}

} // namespace
} // namespace drawing
