#include "functions/uimessages.h"
#include "platform/ui/MessageBox.h"
#include "tests/screens/Screen.h"

#include <QTest>
#include <QWindow>

namespace {

using Use = std::function<void(QDialog &)>;

class MessagesOnScreen : public ScreenTest
{
protected:
    std::string resultOf(LispHandler handler, const std::u16string &message, std::int16_t code, Use use)
    {
        person().expect([use](QDialog &dialog) {
            waitUntilReady(dialog);
            use(dialog);
        });
        return call(handler, {text(message), text(u"Clean up"), shortInteger(code)}).at(1);
    }
};

Use pictureThen(const QString &name, Use use)
{
    return [=](QDialog &dialog) {
        takePicture(dialog, name);
        use(dialog);
    };
}

Use pressed(Qt::Key key)
{
    return [key](QDialog &dialog) { typeKey(dialog, key); };
}

} // namespace

TEST_F(MessagesOnScreen, EnterPressesTheDefaultButton)
{
    EXPECT_EQ(resultOf(acetUiMessage, u"Erase 12 unused layers?\\nThis cannot be undone.", 4 + 32,
                       pictureThen(u"message"_qs, pressed(Qt::Key_Return))),
              "retInt 6");
    EXPECT_EQ(resultOf(acetUiMessage, u"Erase?", 4 + 32 + 256, pressed(Qt::Key_Return)), "retInt 7");
}

TEST_F(MessagesOnScreen, AltAndALetterPressAButton)
{
    EXPECT_EQ(resultOf(acetUiMessage, u"Erase?", 4 + 32,
                       [](QDialog &dialog) {
                           typeKey(dialog, Qt::Key_N, Qt::AltModifier);
                           QTest::qWait(300); // the button is seen going down
                       }),
              "retInt 7");
}

TEST_F(MessagesOnScreen, EscapeIsCancelAndDoesNothingInABoxWithoutIt)
{
    EXPECT_EQ(resultOf(acetUiMessage, u"Erase?", 3, pressed(Qt::Key_Escape)), "retInt 2");
    EXPECT_EQ(resultOf(acetUiMessage, u"The file is locked.", 2 + 16,
                       pictureThen(u"message-error"_qs,
                                   [](QDialog &dialog) {
                                       typeKey(dialog, Qt::Key_Escape);
                                       EXPECT_TRUE(dialog.isVisible());
                                       dialog.windowHandle()->close();
                                       EXPECT_TRUE(dialog.isVisible());
                                       press(u"&Retry"_qs)(dialog);
                                   })),
              "retInt 4");
}

TEST_F(MessagesOnScreen, AreReadableWithAllButtonsAndALongText)
{
    const std::u16string text = u"The drawing holds entities on frozen layers, which are left as they are. Continue "
                                u"with the others, try again, or leave the drawing untouched?";
    EXPECT_EQ(resultOf(acetUiMessage, text, std::int16_t(MB_CANCELTRYCONTINUE + MB_HELP + MB_ICONWARNING),
                       pictureThen(u"message-buttons"_qs, pressed(Qt::Key_Escape))),
              "retInt 2");
}

TEST_F(MessagesOnScreen, MayStandAtTheRightAndReadFromTheRight)
{
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"message-right"_qs);
        typeKey(dialog, Qt::Key_Escape);
    });
    MessageBoxW(&mainWindow(), u"One short line\nand a second line, which is longer", u"Right",
                MB_RIGHT | MB_ICONINFORMATION);
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"message-right-to-left"_qs);
        typeKey(dialog, Qt::Key_Escape);
    });
    MessageBoxW(&mainWindow(), u"One short line\nand a second line, which is longer", u"Right to left",
                MB_RTLREADING | MB_ICONINFORMATION | MB_OKCANCEL);
}
