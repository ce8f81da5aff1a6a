#include "tests/host/render/DrawnList.h"

#include <gtest/gtest.h>

namespace render {

namespace {

using geometry::Vector;

class Dashes : public ::testing::Test, protected DashSink
{
protected:
    void dash(std::span<const Vector> points) override { m_dashes.emplace_back(points.begin(), points.end()); }
    void label(const LinetypeElement &, const Vector &place, const Vector &) override { m_labels.push_back(place); }

    void cut(const std::vector<Vector> &line, const std::vector<double> &lengths, double scale = 1,
             bool isClosed = false)
    {
        m_dashes.clear();
        Linetype linetype;
        for (const double length : lengths) {
            linetype.elements.push_back({});
            linetype.elements.back().length = length;
            linetype.length += std::abs(length);
        }
        cutIntoDashes(line, isClosed, linetype, scale, *this);
    }
    std::vector<std::pair<double, double>> spans() const // along x
    {
        std::vector<std::pair<double, double>> result;
        for (const auto &points : m_dashes)
            result.emplace_back(points.front().x, points.back().x);
        return result;
    }

    std::vector<std::vector<Vector>> m_dashes;
    std::vector<Vector> m_labels;
};

} // namespace

TEST_F(Dashes, LineBeginsAndEndsWithADash)
{
    cut({{0, 0}, {10, 0}}, {2, -1});
    const auto found = spans();
    ASSERT_EQ(found.size(), 4u);
    const double share = 1.5; // (10 - 3 * 3 + 2) / 2
    EXPECT_NEAR(found[0].second, share, 1e-6);
    EXPECT_NEAR(found[1].first, share + 1, 1e-6);
    EXPECT_NEAR(found[1].second, share + 3, 1e-6);
    EXPECT_NEAR(found[3].first, 10 - share, 1e-6);
    EXPECT_DOUBLE_EQ(found[3].second, 10);
}

TEST_F(Dashes, ScaleMultipliesThePattern)
{
    cut({{0, 0}, {10, 0}}, {2, -1}, 0.5);
    EXPECT_EQ(m_dashes.size(), 7u);
    cut({{0, 0}, {10, 0}}, {2, -1}, 4);
    EXPECT_EQ(spans(), (std::vector<std::pair<double, double>>{{0, 10}})); // too short for the pattern
}

TEST_F(Dashes, ContinuousLineAndOneWithVeryManyDashesStayWhole)
{
    cut({{0, 0}, {10, 0}}, {});
    EXPECT_EQ(m_dashes.size(), 1u);
    cut({{0, 0}, {10, 0}}, {2, -1}, 1e-7);
    EXPECT_EQ(m_dashes.size(), 1u);
}

TEST_F(Dashes, DotIsALineOfTwoEqualPoints)
{
    cut({{0, 0}, {3, 0}}, {0, -1});
    ASSERT_GE(m_dashes.size(), 3u);
    EXPECT_EQ(m_dashes[1].front(), m_dashes[1].back());
    EXPECT_EQ(m_dashes[1].front(), (Vector{1, 0, 0}));
}

TEST_F(Dashes, DashGoesAroundCorners)
{
    cut({{0, 0}, {3, 0}, {3, 3}}, {4, -1});
    ASSERT_EQ(m_dashes.size(), 2u);
    cut({{0, 0}, {3, 0}, {3, 7}}, {4, -1}, 1, true);
    ASSERT_EQ(m_dashes.size(), 2u);
    EXPECT_EQ(m_dashes[0], (std::vector<Vector>{{0, 0}, {3, 0}, {3, 1}}));
}

TEST_F(Dashes, LinetypeScalesOfDrawingAndEntityMultiply)
{
    TestDrawing test;
    test.linetype(u"DASHED", {1, -1});
    test.line({0, 0, 0}, {100, 0, 0}, {{8, u"0"}, {6, u"dashed"}, {48, 5.0}});
    const DisplayList list = test.list();
    EXPECT_EQ(list.items().size(), 11u);
    EXPECT_NEAR(totalLength(list), 50 + 2.5, 3);
}

TEST_F(Dashes, PolylineBeginsItsPatternAtEachCornerUnlessItRunsThrough)
{
    for (const std::int64_t flags : {0, 128}) {
        TestDrawing test;
        test.linetype(u"DASHED", {4, -2});
        test.add(u"LWPOLYLINE", u"AcDbPolyline",
                 {{90, std::int64_t{3}},
                  {70, flags},
                  {10, Point{0, 0, 0, 2}},
                  {10, Point{5, 0, 0, 2}},
                  {10, Point{10, 0, 0, 2}}},
                 {{8, u"0"}, {6, u"DASHED"}});
        EXPECT_EQ(test.list().items().size(), 2u);
        EXPECT_NEAR(totalLength(test.list()), flags == 0 ? 10 : 8, 1e-4); // two segments too short for the pattern
    }
}

} // namespace render
