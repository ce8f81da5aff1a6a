// What is selected in the view: for a command that asks, and for the next one.

#include "host/ui/gui/DrawingPanels.h"
#include "tests/host/ui/interaction/InteractionTest.h"

#include <QTreeWidget>

using testing::HasSubstr;

namespace {

class ViewSelectionTest : public InteractionTest
{
protected:
    ViewSelectionTest()
    {
        type("(progn (command \"_.line\" '(10 10) '(40 10) \"\") (setq low (entlast))"
             " (command \"_.line\" '(10 60) '(40 60) \"\") (setq high (entlast))"
             " (command \"_.circle\" '(80 40) 10) (setq round (entlast)))");
    }

    void window(double x1, double y1, double x2, double y2)
    {
        click(x1, y1);
        click(x2, y2);
    }
    std::string implied() { return value("(if (setq s (cadr (ssgetfirst))) (sslength s) 0)"); }
    bool impliedHas(const char *name)
    {
        const std::string expression = std::string("(if (ssmemb ") + name + " (cadr (ssgetfirst))) 1 0)";
        return value(expression.c_str()) == "1";
    }
};

} // namespace

TEST_F(ViewSelectionTest, EntselGivesWhatIsClicked)
{
    later([this] { click(30, 10); });
    type("(setq e (entsel))");
    EXPECT_EQ(value("(equal (car e) low)"), "T");
    EXPECT_NEAR(std::stod(value("(car (cadr e))")), 30, 1 / view().scale());
    later([this] { click(50, 30); });
    EXPECT_EQ(value("(entsel)"), "nil");
}

TEST_F(ViewSelectionTest, TheCursorIsABoxWhileObjectsAreAskedFor)
{
    QImage asked;
    later([this, &asked] {
        move(50, 30);
        asked = picture();
        escape();
    });
    type("(entsel)");
    const QPoint cursor = at(50, 30), besides = cursor + QPoint(100, 0);
    const QPoint corner = cursor + QPoint(3, 3); // PICKBOX
    EXPECT_NE(asked.pixel(corner), asked.pixel(cursor + QPoint(8, 8)));
    EXPECT_EQ(asked.pixel(besides), asked.pixel(besides + QPoint(0, 5))) << "no crosshair";
}

TEST_F(ViewSelectionTest, SsgetTakesClicksAndRectanglesAndShowsThem)
{
    bool firstIsShown = false, all = false;
    later([&] {
        click(30, 10);
        later([&] {
            firstIsShown = isHighlighted(20, 10) && !isHighlighted(20, 60);
            click(65, 20); // to the right: what lies inside
            later([&] {
                click(95, 55);
                later([&] {
                    all = isHighlighted(20, 10) && isHighlighted(70, 40);
                    rightClick();
                });
            });
        });
    });
    type("(setq s (ssget))");
    EXPECT_TRUE(firstIsShown);
    EXPECT_TRUE(all);
    EXPECT_EQ(value("(sslength s)"), "2");
    EXPECT_EQ(value("(if (ssmemb round s) 1 0)"), "1");
    EXPECT_FALSE(isHighlighted(20, 10)) << "the command is over";
}

TEST_F(ViewSelectionTest, ARectangleToTheLeftTakesWhatItCrosses)
{
    later([this] {
        click(30, 70);
        later([this] {
            click(20, 5);
            later([this] { type(""); });
        });
    });
    type("(setq s (ssget))");
    EXPECT_EQ(value("(sslength s)"), "2");
}

TEST_F(ViewSelectionTest, WhileNothingRunsClicksSelectForTheNextCommand)
{
    click(30, 10);
    EXPECT_TRUE(isHighlighted(20, 10));
    click(30, 60);
    EXPECT_EQ(implied(), "2");
    EXPECT_TRUE(isHighlighted(20, 60)) << "also after LISP has run";
    click(30, 10, Qt::ShiftModifier);
    EXPECT_EQ(implied(), "1");
    EXPECT_TRUE(impliedHas("high"));
    escape();
    EXPECT_EQ(implied(), "0");
    EXPECT_FALSE(isHighlighted(20, 60));
}

TEST_F(ViewSelectionTest, WhileNothingRunsRectanglesSelectToo)
{
    window(5, 5, 45, 65);
    EXPECT_EQ(implied(), "2");
    escape();
    window(30, 70, 20, 5);
    EXPECT_EQ(implied(), "2");
    escape();
    window(20, 5, 30, 70);
    EXPECT_EQ(implied(), "0") << "nothing lies inside";
}

TEST_F(ViewSelectionTest, WithPickaddOffEachClickBeginsAnew)
{
    type("(setvar \"PICKADD\" 0)");
    click(30, 10);
    click(30, 60);
    EXPECT_EQ(implied(), "1");
}

TEST_F(ViewSelectionTest, WithPickfirstOffNothingIsSelected)
{
    type("(setvar \"PICKFIRST\" 0)");
    click(30, 10);
    EXPECT_FALSE(isHighlighted(20, 10));
}

TEST_F(ViewSelectionTest, DeleteErasesWhatIsSelectedAndUBringsItBack)
{
    click(30, 10);
    QTest::keyClick(input, Qt::Key_Delete);
    EXPECT_EQ(value("(if (entget low) 1 0)"), "0");
    EXPECT_EQ(value("(if (entget high) 1 0)"), "1");
    type("u");
    EXPECT_EQ(value("(if (entget low) 1 0)"), "1");
}

TEST_F(ViewSelectionTest, DeleteInATypedLineIsOfTheLine)
{
    click(30, 10);
    QTest::keyClicks(input, QStringLiteral("x"));
    QTest::keyClick(input, Qt::Key_Delete);
    input->clear();
    EXPECT_EQ(value("(if (entget low) 1 0)"), "1");
}

TEST_F(ViewSelectionTest, ThePropertiesAreThoseOfWhatIsSelected)
{
    DrawingPanels panels(interface.window(), runner, document);
    QObject::connect(&interactive, &InteractiveDrawing::selectionChanged, &panels, &DrawingPanels::refresh);
    click(70, 40);
    const auto *tree =
        interface.window().findChild<QWidget *>(QStringLiteral("propertiesPanel"))->findChild<QTreeWidget *>();
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    EXPECT_EQ(tree->topLevelItem(0)->text(0), QStringLiteral("CIRCLE"));
}
