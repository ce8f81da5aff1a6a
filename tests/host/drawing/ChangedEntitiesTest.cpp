// Which changes concern which entities, for pictures and for the index of places.

#include "host/drawing/ChangedEntities.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/LayoutEditing.h"

#include <gtest/gtest.h>

namespace drawing {
namespace {

class ChangedEntities : public testing::Test
{
protected:
    std::optional<std::vector<RecordId>> changed(Aspect aspect)
    {
        const auto records = m_drawing.database().journal().changedSince(m_before);
        return records ? changedEntities(m_drawing, *records, aspect) : std::nullopt;
    }
    void begin() { m_before = m_drawing.database().journal().changeCount(); }
    void change(RecordId record)
    {
        constexpr int FlagsCode = 70;
        ASSERT_NE(record, NoRecord);
        GroupList groups = m_drawing.database().groups(record);
        for (Group &group : groups)
            if (group.code == FlagsCode)
                group.value = std::get<std::int64_t>(group.value) + 1;
        m_drawing.database().replace(record, groups);
    }

    Drawing m_drawing;
    std::uint64_t m_before = 0;
};

using Entities = std::vector<RecordId>;

TEST_F(ChangedEntities, ALayerMovesNothingButLooksOtherwise)
{
    begin();
    change(m_drawing.tables().find(known::Layer, u"0"));
    EXPECT_EQ(changed(Aspect::Look), std::nullopt);
    EXPECT_EQ(changed(Aspect::Shape), Entities());
}

TEST_F(ChangedEntities, ABlockOrAStyleMayConcernAnyEntity)
{
    const RecordId block = addBlock(m_drawing.database(), m_drawing.tables(), {u"B"});
    begin();
    change(block);
    EXPECT_EQ(changed(Aspect::Look), std::nullopt);
    EXPECT_EQ(changed(Aspect::Shape), std::nullopt);
    begin();
    change(m_drawing.tables().find(known::Style, u"Standard"));
    EXPECT_EQ(changed(Aspect::Shape), std::nullopt);
}

TEST_F(ChangedEntities, AnotherSheetConcernsWhatChangesPlacesAlone)
{
    const Layout first = findLayout(m_drawing.database(), u"Layout1").value();
    const Layout plan = addLayout(m_drawing, first, u"Plan").value();
    begin();
    ASSERT_TRUE(activateLayout(m_drawing, plan));
    EXPECT_EQ(changed(Aspect::Look), Entities()); // both are empty
    EXPECT_EQ(changed(Aspect::Shape), Entities());
}

} // namespace
} // namespace drawing
