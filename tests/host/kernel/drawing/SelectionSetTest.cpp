#include "host/kernel/drawing/SelectionSet.h"

#include <gtest/gtest.h>

namespace {

using Entities = std::vector<drawing::RecordId>;

class SelectionSetTest : public testing::Test
{
protected:
    void fill(drawing::RecordId count)
    {
        for (drawing::RecordId entity = 1; entity <= count; ++entity)
            set.add(entity);
    }
    SelectionSets sets;
    SelectionSet set{sets};
};

TEST_F(SelectionSetTest, KeepsItsOrderWhereverSomethingIsTakenOut)
{
    fill(6);
    EXPECT_TRUE(set.remove(3));
    EXPECT_EQ(set.entities(), (Entities{1, 2, 4, 5, 6}));
    EXPECT_TRUE(set.remove(1));
    EXPECT_TRUE(set.remove(6));
    EXPECT_TRUE(set.remove(4));
    EXPECT_EQ(set.entities(), (Entities{2, 5}));
    EXPECT_FALSE(set.remove(3));
    EXPECT_TRUE(set.contains(5));
}

TEST_F(SelectionSetTest, TakesBackWhatWasTakenOutAtItsEnd)
{
    fill(4);
    set.remove(2);
    EXPECT_TRUE(set.add(2));
    EXPECT_FALSE(set.add(2));
    EXPECT_EQ(set.entities(), (Entities{1, 3, 4, 2}));
    set.remove(2);
    EXPECT_EQ(set.entities(), (Entities{1, 3, 4}));
}

TEST_F(SelectionSetTest, GivesItsEntitiesByTheirPlacesWhenTheFirstAreTakenOut)
{
    fill(6);
    set.remove(4);
    set.remove(1);
    set.remove(2);
    EXPECT_TRUE(set.add(1));
    EXPECT_EQ(set.entities(), (Entities{3, 5, 6, 1}));
    ASSERT_EQ(set.size(), 4U);
    EXPECT_EQ(set.at(0), 3U);
    EXPECT_EQ(set.at(3), 1U);
    for (const drawing::RecordId entity : Entities{5, 3, 6, 1})
        EXPECT_TRUE(set.remove(entity));
    EXPECT_EQ(set.size(), 0U);
    EXPECT_TRUE(set.add(3));
    EXPECT_EQ(set.entities(), Entities{3});
}

TEST_F(SelectionSetTest, FindsWhatHasMovedUpFarOrNotAtAll)
{
    constexpr drawing::RecordId Many = 1000;
    fill(Many);
    for (drawing::RecordId entity = 1; entity < Many / 2; ++entity)
        EXPECT_TRUE(set.remove(entity));
    for (drawing::RecordId entity = Many; entity > Many / 2; --entity)
        EXPECT_TRUE(set.remove(entity));
    EXPECT_EQ(set.entities(), Entities{Many / 2});
}

} // namespace
