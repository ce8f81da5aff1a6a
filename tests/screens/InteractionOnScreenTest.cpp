// A session with the mouse on a real screen: select, turn by dragging, pick a place, undo.

#include "host/ui/gui/DrawingPanels.h"
#include "tests/host/ui/interaction/LabelBlocksTest.h"
#include "tests/screens/Screen.h"

using testing::HasSubstr;

namespace {

class InteractionOnScreen : public LabelBlocksTest
{
protected:
    InteractionOnScreen()
    {
        QObject::connect(&interactive, &InteractiveDrawing::selectionChanged, &panels, &DrawingPanels::refresh);
        window().resize(1100, 800);
        waitUntilReady(window());
        showWholeUnits();
    }
    MainWindow &window() { return interface.window(); }
    void take(const QString &name)
    {
        QTest::qWait(200);
        takePicture(window(), name);
    }

    DrawingPanels panels{interface.window(), runner, document};
};

} // namespace

TEST_F(InteractionOnScreen, BlocksArePickedTurnedLabelledAndUndone)
{
    thenDo({[this] { click(22, 50); },
            [this] {
                move(36, 56);
                take(u"interactive-turn"_qs);
                click(30, 60);
            },
            [this] {
                move(44, 42);
                take(u"interactive-label"_qs);
                click(34, 42);
            },
            [this] { rightClick(); }});
    type("label-blocks");
    take(u"interactive-report"_qs);
    EXPECT_THAT(output(), HasSubstr("DESK: turned by 90.0 degrees"));
    EXPECT_EQ(value("(sslength (ssget \"_X\" '((0 . \"TEXT\"))))"), "1");
    type("u");
    EXPECT_EQ(value("(ssget \"_X\" '((0 . \"TEXT\")))"), "nil");
}

TEST_F(InteractionOnScreen, ARectangleSelectsAndTheSnapIsMarked)
{
    click(90, 60);
    move(50, 10);
    take(u"interactive-crossing"_qs);
    click(50, 10);
    EXPECT_EQ(value("(sslength (cadr (ssgetfirst)))"), "2");
    take(u"interactive-selected"_qs);
    type("(setvar \"OSMODE\" 1)");
    later([this] {
        move(61, 47);
        take(u"interactive-snap"_qs);
        click(61, 47);
    });
    EXPECT_EQ(value("(mapcar 'rtos (getpoint '(30 20)))"), "(\"62.0000\" \"46.0000\" \"0.0000\")");
}

TEST_F(InteractionOnScreen, ALayoutIsWorkedOnByItsTabAndTheModelByADoubleClick)
{
    QTabBar &tabs = interactive.area().tabs();
    type("(progn (setvar \"TILEMODE\" 0) (command \"_.mview\" '(20 20) '(220 170)) (setvar \"TILEMODE\" 1))");
    QTest::mouseClick(&tabs, Qt::LeftButton, Qt::NoModifier, tabs.tabRect(1).center());
    EXPECT_EQ(value("(getvar \"CTAB\")"), "\"Layout1\"");
    click(120, 170);
    later([this] {
        move(260, 190);
        take(u"layout-paper"_qs);
        click(260, 190);
    });
    type("(setq p (getpoint '(60 60)))");
    escape();
    QTest::mouseDClick(&view(), Qt::LeftButton, Qt::NoModifier, at(120, 95));
    EXPECT_EQ(value("(getvar \"CVPORT\")"), "2");
    type("(setvar \"OSMODE\" 1)");
    later([this] {
        move(61, 47);
        take(u"layout-viewport"_qs);
        click(61, 47);
    });
    EXPECT_EQ(value("(mapcar 'rtos (getpoint '(30 20)))"), "(\"62.0000\" \"46.0000\" \"0.0000\")");
}
