#include "tests/host/render/DrawnList.h"

#include <gtest/gtest.h>

namespace render {

namespace {

RecordId addText(TestDrawing &test, std::u16string string, const GroupList &more)
{
    GroupList groups{{10, Point{50, 50, 0}}, {40, 10.0}, {1, std::move(string)}};
    groups.insert(groups.end(), more.begin(), more.end());
    return test.add(u"TEXT", u"AcDbText", groups, {{8, u"0"}});
}

QRectF boundsOf(const std::u16string &string, const GroupList &more)
{
    TestDrawing test;
    addText(test, string, more);
    return test.list().bounds();
}

} // namespace

TEST(Texts, CapitalIsAsHighAsTheTextAndStandsOnItsPoint)
{
    const QRectF bounds = boundsOf(u"H", {});
    EXPECT_NEAR(bounds.top(), 50, 1e-4); // y goes upwards
    EXPECT_NEAR(bounds.height(), 10, 1e-4);
    EXPECT_GT(bounds.left(), 50);
}

TEST(Texts, AlignmentMovesTheTextToItsSecondPoint)
{
    const Group second{11, Point{50, 50, 0}};
    const QRectF right = boundsOf(u"HH", {{72, std::int64_t{2}}, second});
    EXPECT_LT(right.right(), 50);
    const QRectF middle = boundsOf(u"HH", {{72, std::int64_t{4}}, second});
    EXPECT_NEAR(middle.center().x(), 50, 1); // letters do not stand in the middle of their advance
    EXPECT_NEAR(middle.center().y(), 50, 1e-4);
    const QRectF top = boundsOf(u"H", {{72, std::int64_t{0}}, {73, std::int64_t{3}}, second});
    EXPECT_NEAR(top.bottom(), 50, 1e-4);
}

TEST(Texts, FitIsAsWideAsItsPointsAndAlignedGrowsWithThem)
{
    const Group second{11, Point{90, 50, 0}};
    const QRectF fit = boundsOf(u"HHHH", {{72, std::int64_t{5}}, second});
    EXPECT_NEAR(fit.height(), 10, 1e-4);
    EXPECT_NEAR(fit.center().x(), 70, 1);
    const QRectF once = boundsOf(u"HHHH", {{72, std::int64_t{3}}, {11, Point{70, 50, 0}}});
    const QRectF twice = boundsOf(u"HHHH", {{72, std::int64_t{3}}, second});
    EXPECT_NEAR(twice.height(), 2 * once.height(), 1e-3);
    EXPECT_NEAR(twice.width(), 2 * once.width(), 1e-3);
}

TEST(Texts, RotationTurnsAboutTheInsertionPoint)
{
    const QRectF flat = boundsOf(u"H", {}), upright = boundsOf(u"H", {{50, 90.0}});
    EXPECT_NEAR(upright.left(), 40, 1e-4);
    EXPECT_NEAR(upright.right(), 50, 1e-4);
    EXPECT_NEAR(upright.height(), flat.width(), 1e-4);
}

TEST(Texts, ParagraphsHaveColorsOfTheirOwnAndAMask)
{
    TestDrawing test;
    test.add(u"MTEXT", u"AcDbMText",
             {{10, Point{0, 0, 0}},
              {40, 5.0},
              {71, std::int64_t{1}},
              {1, u"a{\\C1;b}\\c255;c"},
              {90, std::int64_t{1}},
              {63, std::int64_t{2}},
              {45, 1.5}},
             {{8, u"0"}, {62, std::int64_t{5}}});
    const DisplayList list = test.list();
    ASSERT_EQ(list.items().size(), 4u);
    EXPECT_EQ(list.items()[0].kind, DisplayItem::Kind::Area);
    EXPECT_EQ(list.items()[0].rgb, 0xffff00u);
    EXPECT_EQ(list.items()[1].rgb, 0x0000ffu);
    EXPECT_EQ(list.items()[2].rgb, 0xff0000u);
    EXPECT_EQ(list.items()[3].rgb, 0xff0000u);
}

} // namespace render
