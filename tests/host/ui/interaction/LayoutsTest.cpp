// Layouts in the window: their tabs, what is picked on their paper, and the model in their viewports.

#include "tests/host/ui/interaction/InteractionTest.h"

using testing::EndsWith;
using testing::HasSubstr;

namespace {

class Layouts : public InteractionTest
{
protected:
    // The model, 100 by 50, is seen at twice its size from (10 10) to (210 110) of the paper.
    Layouts()
    {
        type("(progn (command \"_.line\" '(0 0) '(100 0) \"\") (setq low (entlast))"
             " (command \"_.line\" '(0 50) '(100 50) \"\") (setq high (entlast)))");
        type("(setvar \"TILEMODE\" 0)");
        type("(progn (command \"_.mview\" '(10 10) '(210 110)) (setq port (entlast))"
             " (command \"_.line\" '(20 150) '(220 150) \"\") (setq edge (entlast)))");
        type("(setvar \"TILEMODE\" 1)");
    }

    QTabBar &tabs() { return interactive.area().tabs(); }
    void clickTab(int tab) { QTest::mouseClick(&tabs(), Qt::LeftButton, Qt::NoModifier, tabs().tabRect(tab).center()); }
    // As a person's: the second press comes as a double click.
    void doubleClick(double x, double y)
    {
        const QPoint place = at(x, y);
        click(x, y);
        QMouseEvent event(QEvent::MouseButtonDblClick, place, view().mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&view(), &event);
        QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, place);
    }
    std::string space() { return value("(mapcar 'getvar '(\"CTAB\" \"TILEMODE\" \"CVPORT\"))"); }
    double number(const char *expression) { return std::stod(value(expression)); }
    // Of a unit of the space that is worked on.
    double pixel() { return 1 / (view().scale() * view().space().scale); }
    std::string entityAt(double x, double y)
    {
        later([this, x, y] { click(x, y); });
        return value("(if (setq e (car (entsel))) (vl-position e (list low high port edge)))");
    }
    void expectPoint(double x, double y)
    {
        later([this, x, y] { click(x, y); });
        type("(setq p (getpoint))");
        EXPECT_NEAR(number("(car p)"), x, pixel());
        EXPECT_NEAR(number("(cadr p)"), y, pixel());
    }
};

} // namespace

TEST_F(Layouts, AClickOnATabMakesItCurrentAndUTakesItBack)
{
    EXPECT_EQ(space(), "(\"Model\" 1 2)");
    clickTab(1);
    EXPECT_EQ(tabs().currentIndex(), 1);
    EXPECT_EQ(space(), "(\"Layout1\" 0 1)");
    type("u");
    EXPECT_EQ(space(), "(\"Model\" 1 2)");
    EXPECT_EQ(tabs().currentIndex(), 0);
    clickTab(1);
    clickTab(0);
    EXPECT_EQ(space(), "(\"Model\" 1 2)");
}

TEST_F(Layouts, TheTabFollowsPrograms)
{
    type("(setvar \"CTAB\" \"Layout1\")");
    EXPECT_EQ(tabs().currentIndex(), 1);
    type("(progn (command \"_.-layout\" \"_new\" \"Plan\") (setvar \"CTAB\" \"Plan\"))");
    ASSERT_GE(tabs().count(), 3);
    EXPECT_EQ(tabs().tabText(tabs().currentIndex()), QStringLiteral("Plan"));
    type("(command \"_.-layout\" \"_rename\" \"Plan\" \"Roof\")");
    EXPECT_EQ(tabs().tabText(tabs().currentIndex()), QStringLiteral("Roof"));
}

TEST_F(Layouts, WhileSomethingIsAskedTabsStay)
{
    later([this] {
        clickTab(1);
        EXPECT_EQ(tabs().currentIndex(), 0);
        click(30, 20);
    });
    type("(setq p (getpoint))");
    EXPECT_NEAR(number("(car p)"), 30, pixel());
    EXPECT_EQ(space(), "(\"Model\" 1 2)");
}

TEST_F(Layouts, PicksAreOfTheCurrentSpaceAfterEachChange)
{
    EXPECT_EQ(entityAt(50, 0), "0");
    clickTab(1);
    EXPECT_EQ(entityAt(120, 150), "3");
    EXPECT_EQ(entityAt(110, 10), "2") << "the viewport's frame";
    EXPECT_EQ(entityAt(110, 110), "2");
    type("(command \"_.-layout\" \"_new\" \"Plan\")");
    type("(setvar \"CTAB\" \"Plan\")");
    EXPECT_EQ(entityAt(120, 150), "nil") << "it is on the other sheet";
    clickTab(1);
    EXPECT_EQ(entityAt(120, 150), "3");
    clickTab(0);
    EXPECT_EQ(entityAt(50, 50), "1");
    EXPECT_EQ(entityAt(120, 150), "nil");
}

TEST_F(Layouts, ClicksAndRectanglesSelectOnPaper)
{
    clickTab(1);
    click(120, 150);
    EXPECT_EQ(value("(ssname (cadr (ssgetfirst)) 0)"), value("!edge"));
    EXPECT_TRUE(isHighlighted(50, 150));
    escape();
    EXPECT_FALSE(isHighlighted(50, 150));
    click(5, 140);
    click(230, 160);
    EXPECT_EQ(value("(sslength (cadr (ssgetfirst)))"), "1");
    clickTab(0);
    clickTab(1);
    EXPECT_EQ(value("(cadr (ssgetfirst))"), "nil") << "what is selected stays with its space";
    later([this] {
        click(230, 170);
        later([this] {
            click(100, 90);
            later([this] { rightClick(); });
        });
    });
    type("(setq s (ssget))");
    EXPECT_EQ(value("(sslength s)"), "2") << "the line and the frame are crossed";
}

TEST_F(Layouts, PointsBasesAndSnapsAreOfThePaper)
{
    clickTab(1);
    expectPoint(120, 60);
    QImage with;
    later([this, &with] {
        move(150, 190);
        with = picture();
        escape();
    });
    const QImage without = picture();
    type("(getpoint '(50 130))");
    const QPoint between = (at(50, 130) + at(150, 190)) / 2;
    const QRect around(between - QPoint(6, 6), QSize(12, 12));
    EXPECT_NE(with.copy(around), without.copy(around));
    type("(setvar \"OSMODE\" 1)");
    later([this] { click(217, 149); });
    EXPECT_EQ(value("(mapcar 'rtos (getpoint))"), "(\"220.0000\" \"150.0000\" \"0.0000\")");
}

TEST_F(Layouts, ADoubleClickIntoAViewportWorksOnTheModelThere)
{
    clickTab(1);
    doubleClick(110, 90);
    EXPECT_EQ(space(), "(\"Layout1\" 0 2)");
    EXPECT_EQ(picture().pixelColor(at(50, 25) + QPoint(8, 8)), QColor(Qt::white));
    EXPECT_EQ(picture().pixelColor(at(0, 25) + QPoint(-1, 0)), QColor(Qt::black)) << "its frame is bold";
    expectPoint(40, 20);
    EXPECT_EQ(entityAt(50, 50), "1");
    type("(setvar \"OSMODE\" 2)");
    later([this] { click(52, 49); });
    EXPECT_EQ(value("(mapcar 'rtos (getpoint))"), "(\"50.0000\" \"50.0000\" \"0.0000\")");
    click(30, 50);
    move(30, 25); // away from the line, of which the viewport's edge shows half the width
    EXPECT_TRUE(isHighlighted(10, 50));
    EXPECT_EQ(value("(ssname (cadr (ssgetfirst)) 0)"), value("!high"));
    escape();
    doubleClick(60, 80); // above the viewport, in the model's units
    EXPECT_EQ(space(), "(\"Layout1\" 0 1)");
    expectPoint(120, 60);
}

TEST_F(Layouts, MspaceAndPspaceAreFollowedWhileAProgramAsks)
{
    clickTab(1);
    later([this] { click(40, 20); });
    type("(progn (command \"_.mspace\") (setq p (getpoint)) (command \"_.pspace\"))");
    EXPECT_NEAR(number("(car p)"), 40, 0.6);
    EXPECT_NEAR(number("(cadr p)"), 20, 0.6);
    expectPoint(120, 60);
}

TEST_F(Layouts, TwoQuickClicksThatChangeNoSpaceAreTwo)
{
    clickTab(1);
    later([this] {
        doubleClick(120, 60);
        later([this] { escape(); });
    });
    type("(setq a (getpoint))");
    EXPECT_EQ(space(), "(\"Layout1\" 0 1)");
    EXPECT_NEAR(number("(car a)"), 120, pixel());
}

TEST_F(Layouts, TheVariablesTellWhatIsSeenOfEachSpace)
{
    EXPECT_EQ(value("(getvar \"VIEWSIZE\")"), "80.0");
    clickTab(1);
    view().show({100, 120}, 250);
    EXPECT_NEAR(number("(getvar \"VIEWSIZE\")"), 250, 1e-9);
    type("(command \"_.zoom\" \"_Window\" '(10 10) '(210 110))");
    EXPECT_NEAR(number("(car (getvar \"VIEWCTR\"))"), 110, 1e-6);
    EXPECT_TRUE(view().visiblePart().contains(view().space().toPage.x.x * 200, 50));
    clickTab(0);
    EXPECT_EQ(value("(list (getvar \"VIEWCTR\") (getvar \"VIEWSIZE\"))"), "((50.0 40.0 0.0) 80.0)");
}

TEST_F(Layouts, InAViewportTheyAreTheViewportsAndZoomChangesWhatItShows)
{
    clickTab(1);
    const DrawingView::Place before = view().place();
    doubleClick(110, 90);
    EXPECT_NEAR(number("(getvar \"VIEWSIZE\")"), 50, 1e-6);
    EXPECT_NEAR(number("(car (getvar \"VIEWCTR\"))"), 50, 1e-6);
    type("(command \"_.zoom\" \"_Center\" '(20 10) 10)");
    EXPECT_EQ(value("(mapcar '(lambda (code) (cdr (assoc code (entget port)))) '(12 45))"), "((20.0 10.0 0.0) 10.0)");
    EXPECT_EQ(view().scale(), before.scale) << "the paper stays";
    expectPoint(22, 8);
    type("u");
    EXPECT_EQ(value("(cdr (assoc 45 (entget port)))"), "50.0");
}

TEST_F(Layouts, WhatProgramsDrawIsOfTheSpaceAndGoesWithTheTab)
{
    clickTab(1);
    doubleClick(110, 90);
    type("(grdraw '(10 25) '(90 25) 1)");
    EXPECT_TRUE(shows(Qt::red, 50, 25));
    clickTab(0);
    clickTab(1);
    EXPECT_FALSE(shows(Qt::red, 50, 25));
}

TEST_F(Layouts, AZoomIsKeptWhenTheSameProgramHasDrawnSomething)
{
    type("(progn (command \"_.line\" '(1 1) '(2 2) \"\") (command \"_.zoom\" \"_Window\" '(0 0) '(10 10)))");
    EXPECT_NEAR(view().centre().x(), 5, 1e-9);
    EXPECT_NEAR(view().height() / view().scale(), 10, 1e-9);
}
