#include "host/kernel/drawing/MeasuredEntities.h"

#include "tests/host/drawing/geometry/SampleEntities.h"

#include <vector>

namespace {

using geometry::integer;
using geometry::place;

class MeasuredEntitiesTest : public geometry::GeometryTest
{
protected:
    drawing::RecordId addPoint(double x) { return add(u"POINT", {place(10, x, 0)}); }
    double left(drawing::RecordId entity)
    {
        const auto box = m_measured.extentsOf(entity);
        EXPECT_TRUE(box);
        return box ? box->minimum.x : NAN;
    }

    MeasuredEntities m_measured{m_drawing};
};

TEST_F(MeasuredEntitiesTest, ManyHaveEachItsOwnBox)
{
    std::vector<drawing::RecordId> points;
    for (int x = 0; x < 5000; ++x)
        points.push_back(addPoint(x));
    for (int round = 0; round < 3; ++round)
        for (std::size_t i = 0; i < points.size(); ++i)
            ASSERT_EQ(left(points[i]), static_cast<double>(i)) << round;
    for (std::size_t i = points.size(); i-- > 0;)
        ASSERT_EQ(left(points[i]), static_cast<double>(i));
}

TEST_F(MeasuredEntitiesTest, AreMeasuredAnewAfterAnyChange)
{
    addBlock(u"dot");
    const auto inBlock = addIn(m_drawing.tables().find(drawing::known::Block, u"dot"), u"POINT", {place(10, 1, 0)});
    const auto insert = addInsert(u"dot"), point = addPoint(7);
    EXPECT_EQ(left(insert), 1);
    EXPECT_EQ(left(point), 7);
    database().replace(inBlock, {{0, u"POINT"}, {8, u"0"}, place(10, 2, 0)});
    EXPECT_EQ(left(insert), 2);
    EXPECT_EQ(left(point), 7);
    database().journal().undo();
    EXPECT_FALSE(m_measured.extentsOf(insert)); // everything was one step, the block's point too
}

TEST_F(MeasuredEntitiesTest, WhatHasNoBoxHasNoneAgain)
{
    const auto ray = add(u"RAY", {place(10, 0, 0), place(11, 1, 0)});
    EXPECT_FALSE(m_measured.extentsOf(ray));
    EXPECT_FALSE(m_measured.extentsOf(ray));
}

} // namespace
