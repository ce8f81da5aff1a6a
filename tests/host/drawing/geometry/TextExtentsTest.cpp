#include "host/drawing/geometry/TextLayouts.h"
#include "tests/host/drawing/geometry/SampleEntities.h"

namespace geometry {
namespace {

class TextExtents : public GeometryTest
{
protected:
    Box text(Groups more)
    {
        Groups groups = {place(10, 10, 20), {40, 2.0}, {1, u"HH"}, {7, u"Standard"}};
        groups.insert(groups.end(), more.begin(), more.end());
        return extents(add(u"TEXT", groups));
    }
    static double width(const Box &box) { return box.maximum.x - box.minimum.x; }
    static double height(const Box &box) { return box.maximum.y - box.minimum.y; }
};

TEST_F(TextExtents, CapitalsReachFromTheBaseLineToTheHeight)
{
    const Box box = text({});
    EXPECT_GT(box.minimum.x, 10);
    EXPECT_NEAR(box.minimum.y, 20, 1e-9);
    EXPECT_NEAR(box.maximum.y, 22, 1e-9);
}

TEST_F(TextExtents, WidthFactorRotationAndObliqueAngle)
{
    const Box plain = text({});
    EXPECT_NEAR(width(text({{41, 3.0}})), 3 * width(plain), 1e-9);
    const Box turned = text({{50, 90.0}});
    EXPECT_NEAR(width(turned), height(plain), 1e-9);
    EXPECT_NEAR(height(turned), width(plain), 1e-9);
    EXPECT_NEAR(width(text({{51, 45.0}})), width(plain) + 2, 1e-9);
}

TEST_F(TextExtents, RightAlignedBackwardAndUpsideDown)
{
    const Box right = text({place(11, 30, 20), integer(72, 2)});
    EXPECT_LT(right.maximum.x, 30);
    EXPECT_GT(right.maximum.x, 29);
    const Box backward = text({integer(71, 2)});
    EXPECT_LT(backward.maximum.x, 10);
    EXPECT_NEAR(text({integer(71, 4)}).minimum.y, 18, 1e-9);
}

TEST_F(TextExtents, TopMiddleAndCentreAlignment)
{
    EXPECT_NEAR(text({place(11, 30, 20), integer(73, 3)}).maximum.y, 20, 1e-9);
    const Box middle = text({place(11, 30, 20), integer(72, 4)});
    EXPECT_NEAR((middle.minimum.y + middle.maximum.y) / 2, 20, 1e-9);
    const Box centre = text({place(11, 30, 20), integer(72, 1)});
    EXPECT_NEAR((centre.minimum.x + centre.maximum.x) / 2, 30, 0.2);
}

TEST_F(TextExtents, FitTextsFillTheirSpanAlignedOnesGrowTo)
{
    const Box fit = text({place(11, 110, 20), integer(72, 5)}), aligned = text({place(11, 110, 20), integer(72, 3)});
    const auto style = m_drawing.tables().find(drawing::known::Style, u"Standard");
    const double advance = 2 * text::layOutLine(u"HH", textStyleOf(database(), style).fontName()).width;
    EXPECT_NEAR(width(fit), width(text({})) * 100 / advance, 1e-9);
    EXPECT_NEAR(height(fit), 2, 1e-9);
    EXPECT_NEAR(width(aligned), width(fit), 1e-9);
    EXPECT_NEAR(height(aligned) / width(aligned), height(text({})) / width(text({})), 1e-9);
}

TEST_F(TextExtents, AttributesHaveTheirVerticalAlignmentInAnotherGroup)
{
    const Groups groups = {place(10, 10, 20), {40, 2.0}, {1, u"HH"}, place(11, 10, 20)};
    Groups attribute = groups, definition = groups;
    attribute.push_back(integer(74, 3));
    EXPECT_NEAR(extents(add(u"ATTRIB", attribute)).maximum.y, 20, 1e-9);
    attribute.back() = integer(73, 3); // the length of a field
    EXPECT_NEAR(extents(add(u"ATTRIB", attribute)).maximum.y, 22, 1e-9);
    definition.push_back({2, u"HHHHHH"}); // what is seen of a definition
    EXPECT_GT(width(extents(add(u"ATTDEF", definition))), 2 * width(text({})));
}

TEST_F(TextExtents, ExtrusionAndThickness)
{
    const Box box = text({{39, 3.0}, place(210, 0, 0, -1)});
    EXPECT_LT(box.maximum.x, -10); // seen from behind
    EXPECT_NEAR(box.minimum.z, -3, 1e-9);
    EXPECT_NEAR(box.maximum.z, 0, 1e-9);
}

TEST_F(TextExtents, ParagraphsFromTheirAttachmentPoint)
{
    const auto paragraphs = [&](Groups more) {
        Groups groups = {place(10, 0, 0), {40, 2.0}, {1, u"H\\PH"}};
        groups.insert(groups.end(), more.begin(), more.end());
        return extents(add(u"MTEXT", groups));
    };
    const Box top = paragraphs({integer(71, 1)});
    EXPECT_NEAR(top.maximum.y, 0, 1e-9);
    EXPECT_NEAR(height(top), 2 + 2 * 5.0 / 3, 1e-9);
    EXPECT_LT(paragraphs({integer(71, 3)}).maximum.x, 0);
    EXPECT_GT(paragraphs({integer(71, 7)}).minimum.y, -1);
    EXPECT_LT(paragraphs({integer(71, 1), place(11, 0, 1)}).minimum.x, paragraphs({}).minimum.x + 1);
    EXPECT_GT(height(paragraphs({{50, 45.0}})), 4);
}

} // namespace
} // namespace geometry
