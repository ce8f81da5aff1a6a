#include "dialogs/Dlg_Status.h"
#include "functions/ui.h"
#include "tests/functions/ui/UiTest.h"

namespace {

class UiStatus : public UiTest
{
protected:
    QList<Dlg_Status *> windows() { return mainWindow().findChildren<Dlg_Status *>(); }
    Dlg_Status &window() { return *windows().value(0); }
};

} // namespace

TEST_F(UiStatus, ShowsTheWindowWithItsCaptionAndASecondCallKeepsTheSameWindowWithAnEmptyCaption)
{
    EXPECT_EQ(call(acetUiStatus, {text(u"Working"), text(u"Step 1")}),
              (Operations{"getArgs", "retNil", "releaseRb 2"}));
    ASSERT_EQ(windows().size(), 1);
    const Dlg_Status *first = &window();
    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(first->isModal());
    EXPECT_EQ(first->windowTitle(), u"Step 1"_qs);
    EXPECT_EQ(first->Message->text(), u"Working"_qs);
    EXPECT_EQ(call(acetUiStatus, {text(u"Still working")}), (Operations{"getArgs", "retNil", "releaseRb null"}));
    EXPECT_EQ(windows(), QList{const_cast<Dlg_Status *>(first)});
    EXPECT_EQ(first->windowTitle(), QString());
    EXPECT_EQ(first->Message->text(), u"Still working"_qs);
}

TEST_F(UiStatus, WithNothingOr5ReturnsNilAndLeavesTheWindowAsItIs)
{
    EXPECT_EQ(call(acetUiStatus, {}), (Operations{"getArgs", "retNil", "releaseRb null"}));
    EXPECT_TRUE(windows().isEmpty());
    call(acetUiStatus, {text(u"Working"), text(u"Step 1")});
    EXPECT_EQ(call(acetUiStatus, {}), (Operations{"getArgs", "retNil", "releaseRb null"}));
    EXPECT_EQ(call(acetUiStatus, {shortInteger(5), text(u"x")}), (Operations{"getArgs", "retNil", "releaseRb 1"}));
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowTitle(), u"Step 1"_qs);
    EXPECT_EQ(window().Message->text(), u"Working"_qs);
}

TEST_F(UiStatus, TakesATitleThatIsNoStringAsNone)
{
    EXPECT_EQ(call(acetUiStatus, {text(u"Working"), shortInteger(5)}),
              (Operations{"getArgs", "retNil", "releaseRb 2"}));
    EXPECT_EQ(window().windowTitle(), QString());
}

TEST_F(UiStatus, ShowsItsTextUnchanged)
{
    call(acetUiStatus, {text(u"C:\\new\\table"), text(u"50 %")});
    EXPECT_EQ(window().Message->text(), u"C:\\new\\table"_qs);
    EXPECT_EQ(window().windowTitle(), u"50 %"_qs);
}

TEST_F(UiStatus, TheWindowCannotBeResizedByTheUserAndHasNoContextHelpButton)
{
    call(acetUiStatus, {text(u"Working")});
    EXPECT_EQ(window().minimumSize(), QSize(306, 125));
    EXPECT_EQ(window().maximumSize(), QSize(306, 125));
    window().setWindowFlag(Qt::WindowContextHelpButtonHint);
    call(acetUiStatus, {text(u"Still working")});
    EXPECT_FALSE(window().windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    EXPECT_TRUE(window().isVisible());
}

TEST_F(UiStatus, AWindowThatTheUserClosedIsShownAgain)
{
    call(acetUiStatus, {text(u"Working")});
    Dlg_Status *first = &window();
    EXPECT_TRUE(first->close());
    call(acetUiStatus, {});
    EXPECT_FALSE(first->isVisible());
    call(acetUiStatus, {text(u"Still working")});
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(windows(), QList{first});
}
