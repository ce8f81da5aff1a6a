#include "host/ui/view/DrawingArea.h"

#include "host/drawing/HeaderVariables.h"
#include "tests/host/render/DrawnList.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

constexpr std::int64_t Red = 1;

class DrawingAreaTest : public testing::Test
{
protected:
    DrawingAreaTest()
    {
        m_test.line({0, 0, 0}, {100, 0, 0}, {{8, u"0"}, {62, Red}});
        m_test.line({0, 50, 0}, {100, 50, 0}, {{8, u"0"}, {62, Red}});
        m_area = std::make_unique<DrawingArea>(
            [this]() -> const drawing::Drawing & { return m_other ? m_other->drawing : m_test.drawing; });
        m_area->resize(400, 300);
        m_area->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(m_area.get()));
    }

    DrawingView &view() { return m_area->view(); }
    QPointF middle() { return QRectF(view().rect()).center(); }
    // Whether the pixel where this place of the drawing is seen, or one beside it, is red.
    bool isRed(const QPointF &world)
    {
        const QImage image = view().grab().toImage();
        const QPoint at = view().positionOf(world).toPoint();
        for (int dy = -1; dy <= 1; ++dy)
            if (image.rect().contains(at + QPoint(0, dy)) && image.pixelColor(at + QPoint(0, dy)) == QColor(Qt::red))
                return true;
        return false;
    }
    void setLayoutShown(bool isShown)
    {
        drawing::setVariable(m_test.drawing.database(), "$TILEMODE", {70, std::int64_t{isShown ? 0 : 1}});
        m_area->refresh();
    }
    void wheel(const QPointF &position, int steps)
    {
        QWheelEvent event(position, view().mapToGlobal(position), QPoint(), QPoint(0, 120 * steps), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view(), &event);
    }

    render::TestDrawing m_test;
    std::unique_ptr<render::TestDrawing> m_other;
    std::unique_ptr<DrawingArea> m_area;
};

} // namespace

TEST_F(DrawingAreaTest, ShowsAllOfTheDrawingWhenItIsOpened)
{
    EXPECT_TRUE(isRed({50, 0}));
    EXPECT_TRUE(isRed({1, 50}));
    EXPECT_TRUE(isRed({99, 50}));
    EXPECT_FALSE(isRed({50, 25}));
    EXPECT_LT(view().positionOf(QPointF(50, 50)).y(), view().positionOf(QPointF(50, 0)).y()); // up is up
}

TEST_F(DrawingAreaTest, WheelZoomsAboutTheCursor)
{
    const QPointF cursor(100, 200), before = view().placeAt(cursor);
    const double scale = view().scale();
    wheel(cursor, 3);
    EXPECT_NEAR(view().scale(), scale * 1.25 * 1.25 * 1.25, 1e-9);
    EXPECT_NEAR(view().placeAt(cursor).x(), before.x(), 1e-9);
    EXPECT_NEAR(view().placeAt(cursor).y(), before.y(), 1e-9);
    wheel(cursor, -3);
    EXPECT_NEAR(view().scale(), scale, 1e-9);
}

TEST_F(DrawingAreaTest, MiddleButtonPansAndADoubleClickShowsAll)
{
    const QPoint from(100, 100), to(150, 80);
    const QPointF held = view().placeAt(from);
    QTest::mousePress(&view(), Qt::MiddleButton, Qt::NoModifier, from);
    QTest::mouseMove(&view(), to);
    QTest::mouseRelease(&view(), Qt::MiddleButton, Qt::NoModifier, to);
    EXPECT_NEAR(view().placeAt(to).x(), held.x(), 1e-9);
    EXPECT_NEAR(view().placeAt(to).y(), held.y(), 1e-9);
    QTest::mouseDClick(&view(), Qt::MiddleButton, Qt::NoModifier, from);
    EXPECT_NEAR(view().placeAt(middle()).x(), 50, 1e-9);
    EXPECT_NEAR(view().placeAt(middle()).y(), 25, 1e-9);
}

TEST_F(DrawingAreaTest, CursorIsToldInCoordinatesOfTheDrawing)
{
    const QSignalSpy moved(&view(), &DrawingView::cursorMoved);
    const QPoint at(120, 90);
    QTest::mouseMove(&view(), at);
    ASSERT_FALSE(moved.isEmpty());
    EXPECT_EQ(moved.last().first().toPointF(), view().placeAt(at));
}

TEST_F(DrawingAreaTest, ChangeIsShownAfterARefreshAndTheViewStays)
{
    wheel(middle(), 1);
    const double scale = view().scale();
    m_test.line({0, 25, 0}, {100, 25, 0}, {{8, u"0"}, {62, Red}});
    EXPECT_FALSE(isRed({50, 25}));
    m_area->refresh();
    EXPECT_TRUE(isRed({50, 25}));
    EXPECT_EQ(view().scale(), scale);
}

TEST_F(DrawingAreaTest, ALargeDrawingIsShownAsItIsAfterEachChangeAndAfterUndo)
{
    constexpr int Many = 10000;
    for (int i = 0; i < Many; ++i)
        m_test.line({0, 0, 0}, {100, 0, 0}, {{8, u"0"}});
    m_area->refresh();
    m_test.drawing.database().journal().nextStep();
    m_test.line({0, 25, 0}, {100, 25, 0}, {{8, u"0"}, {62, Red}});
    m_area->refresh();
    EXPECT_TRUE(isRed({50, 25}));
    m_test.drawing.database().journal().undo();
    m_area->refresh();
    EXPECT_FALSE(isRed({50, 25}));
    m_test.drawing.database().journal().redo();
    m_area->refresh();
    EXPECT_TRUE(isRed({50, 25}));
}

TEST_F(DrawingAreaTest, AnotherDrawingIsShownAsAWhole)
{
    m_other = std::make_unique<render::TestDrawing>();
    m_other->line({1000, 1000, 0}, {3000, 1000, 0}, {{8, u"0"}, {62, Red}});
    m_area->refresh();
    EXPECT_TRUE(isRed({2000, 1000}));
    EXPECT_NEAR(view().placeAt(middle()).x(), 2000, 1e-6);
}

TEST_F(DrawingAreaTest, LayoutsAreTabsBehindTheModel)
{
    ASSERT_GE(m_area->tabs().count(), 2);
    EXPECT_EQ(m_area->tabs().tabText(0), QStringLiteral("Model"));
    EXPECT_EQ(m_area->tabs().tabText(1), QStringLiteral("Layout1"));
    setLayoutShown(true);
    EXPECT_EQ(m_area->tabs().currentIndex(), 1);
    const QImage image = view().grab().toImage();
    EXPECT_EQ(image.pixelColor(view().rect().center()), QColor(Qt::white)); // the paper
    EXPECT_NE(image.pixelColor(1, 1), QColor(Qt::white));
    setLayoutShown(false);
    EXPECT_TRUE(isRed({50, 0}));
}

TEST_F(DrawingAreaTest, AClickOnATabOnlyTellsWhatIsWanted)
{
    const QSignalSpy chosen(m_area.get(), &DrawingArea::tabChosen);
    QTest::mouseClick(&m_area->tabs(), Qt::LeftButton, Qt::NoModifier, m_area->tabs().tabRect(1).center());
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen.first().first(), QStringLiteral("Layout1"));
    EXPECT_EQ(m_area->tabs().currentIndex(), 0);
    EXPECT_TRUE(isRed({50, 0}));
}

TEST_F(DrawingAreaTest, ATabIsShownAsItWasLeft)
{
    wheel(middle(), 3);
    const DrawingView::Place model = view().place();
    setLayoutShown(true);
    EXPECT_TRUE(view().place().showsAll);
    wheel(middle(), -2);
    const DrawingView::Place layout = view().place();
    m_test.line({0, 25, 0}, {100, 25, 0}, {{8, u"0"}, {62, Red}});
    setLayoutShown(false);
    EXPECT_EQ(view().scale(), model.scale);
    EXPECT_EQ(view().centre(), model.centre);
    EXPECT_TRUE(isRed({50, 25})) << "what was drawn meanwhile";
    setLayoutShown(true);
    EXPECT_EQ(view().scale(), layout.scale);
    EXPECT_EQ(view().centre(), layout.centre);
}

TEST_F(DrawingAreaTest, CirclesStayRoundWhenTheyAreLookedAtClosely)
{
    m_test.add(u"CIRCLE", u"AcDbCircle", {{10, render::Point{50, 25, 0}}, {40, 20.0}}, {{8, u"0"}, {62, Red}});
    m_area->refresh();
    const double angle = 0.0123; // between the points that it is cut into when all is seen
    const QPointF place(50 + 20 * std::cos(angle), 25 + 20 * std::sin(angle));
    view().zoom(20000, view().positionOf(place));
    wheel(view().positionOf(place), 1);
    EXPECT_TRUE(isRed(place));
}

TEST_F(DrawingAreaTest, EmptyDrawingIsShownToo)
{
    m_other = std::make_unique<render::TestDrawing>();
    m_area->refresh();
    view().zoom(2, middle());
    const QImage image = view().grab().toImage();
    EXPECT_EQ(image.pixelColor(5, 5), view().palette().color(QPalette::Base));
}
