#include "functions/uimessages.h"
#include "tests/screens/Screen.h"

#include <QPushButton>

using HtmlMessageOnScreen = ScreenTest;

TEST_F(HtmlMessageOnScreen, AClickPressesAButton)
{
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"message-html"_qs);
        click(*dialog.findChildren<QPushButton *>().at(1));
    });
    const std::u16string message = u"<h3>Layers</h3>Erase <b>12</b> unused layers?";
    EXPECT_EQ(call(acetUiMessageHtml, {text(message), text(u"Clean up"), shortInteger(3 + 48)}).at(1), "retInt 7");
}
