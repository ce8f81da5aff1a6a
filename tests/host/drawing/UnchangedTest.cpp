#include "tests/host/drawing/SampleDrawing.h"

#include <gtest/gtest.h>

namespace drawing {
namespace {

std::string replaced(std::string text, std::string_view what, std::string_view with)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

// Also every byte lies in one record, in order.
void expectUnchanged(std::string_view bytes)
{
    const auto database = databaseOf(bytes);
    ASSERT_EQ(writtenDrawing(*database), bytes);
    std::string all;
    for (RecordId id = 0; id < database->recordCount(); ++id)
        all += database->bytes(id);
    ASSERT_EQ(all, bytes);
}

TEST(UnchangedDrawing, IsWrittenByteForByte)
{
    expectUnchanged(SampleText);
}

TEST(UnchangedDrawing, KeepsItsLineEnds)
{
    expectUnchanged(replaced(std::string(SampleText), "\n", "\r\n"));
    expectUnchanged(replaced(std::string(SampleText), "\n", "\r"));
    expectUnchanged(replaced(std::string(SampleText), "ENDSEC\n", "ENDSEC\r\n"));
}

TEST(UnchangedDrawing, KeepsAByteOrderMark)
{
    expectUnchanged("\xEF\xBB\xBF" + std::string(SampleText));
}

TEST(UnchangedDrawing, MayBeAnything)
{
    for (const std::string_view bytes :
         {"", "0", "\n", "0\nEOF", "no drawing at all", "0\nENDSEC\n0\nENDTAB\n0\nENDBLK\n"})
        expectUnchanged(bytes);
    expectUnchanged(std::string(BinarySentinel));
    expectUnchanged(std::string(BinarySentinel.substr(0, 10)));
    expectUnchanged(std::string(1000, '\0'));
}

TEST(UnchangedDrawing, EveryTruncationIsReadAndWritten)
{
    for (std::size_t length = 0; length <= SampleText.size(); ++length)
        expectUnchanged(SampleText.substr(0, length));
}

} // namespace
} // namespace drawing
