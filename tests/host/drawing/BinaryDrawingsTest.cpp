// Whole drawings in both binary forms.

#include "host/drawing/GroupCursor.h"
#include "host/drawing/GroupWriter.h"

#include "tests/host/drawing/SampleDrawing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace drawing {
namespace {

class BinaryDrawings : public testing::TestWithParam<FileFormat::Kind>
{
protected:
    // The sample as a binary file, group by group.
    std::string sample() const
    {
        const auto database = databaseOf(SampleText);
        const GroupWriter writer({GetParam()}, database->codec());
        std::string bytes(BinarySentinel);
        for (RecordId id = 0; id < database->recordCount(); ++id) {
            GroupReader reader = database->reader(id);
            for (Item item; reader.next(item);) {
                const Group group = reader.group(item);
                EXPECT_TRUE(writer.append(bytes, group.code, group.value)) << group.code;
            }
        }
        return bytes;
    }

    // A group with a real, whose bytes are those of any value: writers refuse some.
    static std::string realGroup(int code, double value)
    {
        std::string bytes;
        EXPECT_TRUE(GroupWriter({GetParam()}, TextCodec()).append(bytes, code, 0.0));
        return bytes.replace(bytes.size() - sizeof value, sizeof value, reinterpret_cast<const char *>(&value),
                             sizeof value);
    }
};

INSTANTIATE_TEST_SUITE_P(Forms, BinaryDrawings,
                         testing::Values(FileFormat::Kind::Binary, FileFormat::Kind::BinaryShortCodes));

TEST_P(BinaryDrawings, AreReadAsWhatTheySay)
{
    const auto text = databaseOf(SampleText), binary = databaseOf(sample());
    ASSERT_EQ(binary->format().kind, GetParam());
    ASSERT_EQ(binary->recordCount(), text->recordCount());
    EXPECT_EQ(binary->version(), text->version());
    for (RecordId id = 1; id < text->recordCount(); ++id) // what stands before the first section is the form's own
        EXPECT_EQ(binary->groups(id), text->groups(id)) << id;
}

TEST_P(BinaryDrawings, AreWrittenByteForByteWhenNothingIsChanged)
{
    const std::string bytes = sample();
    EXPECT_EQ(writtenDrawing(*databaseOf(bytes)), bytes);
}

TEST_P(BinaryDrawings, AChangeRewritesItsOwnGroupsAlone)
{
    const std::string bytes = sample();
    const auto database = databaseOf(bytes);
    const RecordId layer = findType(*database, "LAYER");
    ASSERT_NE(layer, NoRecord);
    const auto at = static_cast<std::size_t>(database->bytes(layer).data() - database->fileBytes().data());
    const std::string before(database->bytes(layer));
    ASSERT_TRUE(database->replace(layer, withValue(database->groups(layer), 2, std::u16string(u"Doors"))));
    std::string expected = bytes;
    expected.replace(expected.find(std::string("Walls") + '\0', at), 5, "Doors");
    EXPECT_EQ(writtenDrawing(*database), expected);
    database->journal().undo();
    EXPECT_EQ(writtenDrawing(*database), bytes);
    EXPECT_EQ(database->bytes(layer), before);
}

TEST_P(BinaryDrawings, WhatIsAddedIsReadAgain)
{
    const auto database = databaseOf(sample());
    const RecordId added =
        database->add(RecordKind::Entity, {{0, u"POINT"}, {8, u"Walls"}, {10, Point{1.5, -2, 3e300}}},
                      database->endOf(database->section(known::Entities)));
    const auto again = databaseOf(writtenDrawing(*database));
    const RecordId found = again->find(Handle{database->record(added).handle});
    ASSERT_NE(found, NoRecord);
    EXPECT_EQ(again->groups(found), database->groups(added));
}

TEST_P(BinaryDrawings, ANumberThatIsNoneStaysWhenOthersAreChanged)
{
    std::string bytes = sample();
    const std::string before = realGroup(11, 10), after = realGroup(11, std::nan(""));
    bytes.replace(bytes.find(before), before.size(), after);
    const auto database = databaseOf(bytes);
    const RecordId line = database->find({0x23});
    ASSERT_TRUE(database->replace(line, withValue(database->groups(line), 1000, u"other")));
    std::string expected = bytes;
    expected.replace(expected.find(std::string("text") + '\0', expected.find(after)), 4, "other");
    EXPECT_EQ(writtenDrawing(*database), expected);
}

TEST_P(BinaryDrawings, TheNextHandleIsSetBesideANumberThatIsNone)
{
    std::string bytes = sample();
    const std::size_t seed = bytes.find(std::string("30") + '\0', bytes.find("$HANDSEED"));
    bytes.insert(seed + 3, realGroup(40, std::nan("")));
    const auto database = databaseOf(bytes);
    database->add(RecordKind::Entity, {{0, u"POINT"}, {8, u"0"}, {10, Point{1, 2, 3}}},
                  database->endOf(database->section(known::Entities)));
    const std::string written = writtenDrawing(*database);
    EXPECT_EQ(written.substr(0, seed + 16), bytes.replace(seed, 2, "31").substr(0, seed + 16));
}

TEST_P(BinaryDrawings, EveryTruncationIsReadAndWritten)
{
    const std::string bytes = sample();
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        const std::string cut = bytes.substr(0, length);
        ASSERT_EQ(writtenDrawing(*databaseOf(cut)), cut) << length;
    }
}

} // namespace
} // namespace drawing
