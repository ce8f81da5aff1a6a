#include "tests/host/render/DrawnList.h"

#include "host/render/ListPainter.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace render {

namespace {

GroupList square(double low, double high)
{
    GroupList groups{{92, std::int64_t{2}}, {72, std::int64_t{0}}, {73, std::int64_t{1}}, {93, std::int64_t{4}}};
    for (const Point &corner :
         {Point{low, low, 0, 2}, Point{high, low, 0, 2}, Point{high, high, 0, 2}, Point{low, high, 0, 2}})
        groups.push_back({10, corner});
    groups.push_back({97, std::int64_t{0}});
    return groups;
}

void append(GroupList &groups, const GroupList &more)
{
    groups.insert(groups.end(), more.begin(), more.end());
}

// Squares inside each other, the outermost from 0 to 100.
TestDrawing &addHatch(TestDrawing &test, bool isFilled, int squares, const GroupList &pattern = {})
{
    GroupList groups{
        {10, Point{}}, {210, Point{0, 0, 1}}, {2, u"P"}, {70, std::int64_t{isFilled}}, {91, std::int64_t{squares}}};
    for (int i = 0; i < squares; ++i)
        append(groups, square(i * 20, 100 - i * 20));
    append(groups, {{75, std::int64_t{0}}, {76, std::int64_t{1}}});
    append(groups, pattern);
    append(groups, {{98, std::int64_t{0}}});
    test.add(u"HATCH", u"AcDbHatch", groups, {{8, u"0"}, {62, std::int64_t{1}}});
    return test;
}

// Lines at a distance of 5, beginning at the height 2.5.
GroupList lines(const GroupList &dashes = {})
{
    GroupList groups{{52, 0.0},
                     {41, 1.0},
                     {77, std::int64_t{0}},
                     {78, std::int64_t{1}},
                     {53, 0.0},
                     {43, 0.0},
                     {44, 2.5},
                     {45, 0.0},
                     {46, 5.0},
                     {79, static_cast<std::int64_t>(dashes.size())}};
    append(groups, dashes);
    return groups;
}

QColor colorAt(const DisplayList &list, int x, int y)
{
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(list, {}, painter);
    painter.end();
    return image.pixelColor(x, y);
}

} // namespace

TEST(Hatch, FillAlternatesFromLoopToLoop)
{
    TestDrawing test;
    const DisplayList list = addHatch(test, true, 3).list();
    EXPECT_EQ(colorAt(list, 10, 50), QColor(Qt::red));
    EXPECT_EQ(colorAt(list, 30, 50), QColor(Qt::white));
    EXPECT_EQ(colorAt(list, 50, 50), QColor(Qt::red));
}

TEST(Hatch, LinesOfThePatternEndAtTheLoops)
{
    TestDrawing test;
    const DisplayList list = addHatch(test, false, 2, lines()).list();
    // 20 lines; 12 of them meet the hole of 60 x 60 and are cut in two.
    EXPECT_EQ(list.items().size(), 20u + 12u);
    EXPECT_NEAR(totalLength(list), 20 * 100 - 12 * 60, 1e-3);
    for (const DisplayItem &item : list.items())
        EXPECT_FLOAT_EQ(std::fmod(list.points(item)[0].y, 5.0f), 2.5f);
}

TEST(Hatch, DashesStandWhereThePatternPutsThem)
{
    TestDrawing test;
    const DisplayList list = addHatch(test, false, 1, lines({{49, 3.0}, {49, -2.0}})).list();
    EXPECT_EQ(list.items().size(), 20u * 20u);
    EXPECT_NEAR(totalLength(list), 20 * 20 * 3, 1e-2);
    EXPECT_FLOAT_EQ(std::fmod(list.points(list.items()[7])[0].x, 5.0f), 0);
}

TEST(Hatch, PatternThatIsFarTooFineIsLeftOut)
{
    geometry::PatternLine line;
    line.direction = {1, 0, 0};
    line.offset = {0, 1e-9, 0};
    class Counter : public DashSink
    {
    public:
        void dash(std::span<const geometry::Vector>) override { ++count; }
        void label(const LinetypeElement &, const geometry::Vector &, const geometry::Vector &) override {}
        int count = 0;
    } counter;
    const Outlines outlines{{{0, 0}, {1, 0}, {1, 1}}};
    EXPECT_FALSE(hatch(outlines, line, counter));
    line.offset = {1, 0, 0}; // along the lines: they would all be one
    EXPECT_FALSE(hatch(outlines, line, counter));
    EXPECT_EQ(counter.count, 0);
    line.offset = {0, 0.25, 0};
    EXPECT_TRUE(hatch(outlines, line, counter));
    EXPECT_EQ(counter.count, 4);
}

TEST(Hatch, GradientGoesFromColorToColor)
{
    TestDrawing test;
    addHatch(test, true, 1,
             {{450, std::int64_t{1}},
              {460, 0.0},
              {453, std::int64_t{2}},
              {421, std::int64_t{0xff0000}},
              {421, std::int64_t{0x0000ff}},
              {470, u"LINEAR"}});
    const DisplayList list = test.list();
    ASSERT_EQ(list.items().size(), 1u);
    ASSERT_EQ(list.items()[0].kind, DisplayItem::Kind::Gradient);
    EXPECT_GT(colorAt(list, 5, 50).red(), 200);
    EXPECT_GT(colorAt(list, 95, 50).blue(), 200);
}

} // namespace render
