#include "host/drawing/LayoutEditing.h"

#include "host/drawing/Blocks.h"

#include <gtest/gtest.h>

namespace drawing {
namespace {

class LayoutEditing : public testing::Test
{
protected:
    Layout layout(std::u16string_view name) const { return findLayout(m_drawing.database(), name).value(); }

    Drawing m_drawing;
};

TEST_F(LayoutEditing, TheOnlyLayoutIsNotDeleted)
{
    EXPECT_FALSE(deleteLayout(m_drawing, layout(u"Layout1")));
    EXPECT_TRUE(findLayout(m_drawing.database(), u"Layout1"));
}

TEST_F(LayoutEditing, WhereTheCurrentOneIsDeletedAnotherBecomesCurrent)
{
    ASSERT_TRUE(addLayout(m_drawing, layout(u"Layout1"), u"Plan"));
    EXPECT_TRUE(deleteLayout(m_drawing, layout(u"Layout1")));
    EXPECT_EQ(activeLayout(m_drawing).value().name, u"Plan");
}

// As in files that other programs have damaged. Without the check the sheet itself would be erased.
TEST_F(LayoutEditing, TheCurrentOneStaysWhereTheOthersHaveLostTheirBlocks)
{
    const Layout plan = addLayout(m_drawing, layout(u"Layout1"), u"Plan").value();
    eraseBlock(m_drawing.database(), m_drawing.tables(),
               m_drawing.tables().find(known::Block, m_drawing.database().name(plan.blockRecord)));
    EXPECT_FALSE(deleteLayout(m_drawing, layout(u"Layout1")));
    EXPECT_EQ(activeLayout(m_drawing).value().name, u"Layout1");
    EXPECT_NE(m_drawing.tables().find(known::Block, PaperSpace), NoRecord);
}

TEST_F(LayoutEditing, ADeletedLayoutTakesItsBlockAlong)
{
    const Layout plan = addLayout(m_drawing, layout(u"Layout1"), u"Plan").value();
    const std::u16string block = m_drawing.database().name(plan.blockRecord);
    EXPECT_TRUE(deleteLayout(m_drawing, plan));
    EXPECT_EQ(m_drawing.tables().find(known::Block, block), NoRecord);
    EXPECT_EQ(m_drawing.tables().find(known::BlockRecord, block), NoRecord);
}

} // namespace
} // namespace drawing
