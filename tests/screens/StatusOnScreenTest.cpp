#include "dialogs/Dlg_Status.h"
#include "functions/ui.h"
#include "tests/screens/Screen.h"

#include <QTest>
#include <QWindow>

namespace {

class StatusOnScreen : public ScreenTest
{
protected:
    Dlg_Status &window() { return *mainWindow().findChild<Dlg_Status *>(); }
};

} // namespace

TEST_F(StatusOnScreen, ShowsItsTextAndKeepsItsSize)
{
    call(acetUiStatus, {text(u"Reading the drawing:\n1,204 of 3,310 entities"), text(u"Step 1 of 3")});
    waitUntilReady(window());
    takePicture(window(), u"status"_qs);
    window().resize(500, 400);
    QTest::qWait(200);
    EXPECT_EQ(window().size(), QSize(306, 125));
}

TEST_F(StatusOnScreen, IsShownAgainAfterItWasClosed)
{
    call(acetUiStatus, {text(u"Working")});
    waitUntilReady(window());
    window().windowHandle()->close();
    QTest::qWait(100);
    EXPECT_FALSE(window().isVisible());
    call(acetUiStatus, {text(u"Still working")});
    waitUntilReady(window());
    EXPECT_TRUE(window().isVisible());
}
