#include "host/kernel/drawing/SelectionSet.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

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

// A hundred times the time of another that is filled as much: to tell each place anew takes thousands.
TEST_F(SelectionSetTest, IsEmptiedFromItsStartWithoutMuchAdo)
{
    constexpr drawing::RecordId Many = 20000;
    QElapsedTimer timer;
    timer.start();
    fill(Many);
    const qint64 filling = timer.nsecsElapsed();
    timer.restart();
    for (drawing::RecordId entity = 1; entity <= Many; ++entity)
        set.remove(entity);
    EXPECT_LT(timer.nsecsElapsed(), 100 * filling);
    EXPECT_EQ(set.entities(), Entities());
}

} // namespace
