// The host's window as a person works with it: typed commands and LISP, names that are offered, layers, data, progress.

#include "host/ui/gui/CheckBoxStyle.h"
#include "host/ui/gui/DesktopColors.h"
#include "host/ui/gui/DrawingFiles.h"
#include "host/ui/gui/DrawingPanels.h"
#include "tests/host/ui/gui/GuiTest.h"
#include "tests/screens/Screen.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QMenuBar>

using testing::EndsWith;
using testing::HasSubstr;

namespace {

class WindowOnScreen : public GuiTest
{
protected:
    WindowOnScreen()
    {
        QApplication::setStyle(new CheckBoxStyle(QApplication::style()->name()));
        window().resize(1000, 640);
        waitUntilReady(window());
        type(QStringLiteral("(setvar \"CMDECHO\" 0)"));
        type(QStringLiteral("(command \"_.-LAYER\" \"_New\" \"Walls,Doors,Notes\" \"_Color\" 1 \"Walls\" \"_Color\" 3 "
                            "\"Doors\" \"_Freeze\" \"Notes\" \"\")"));
        type(QStringLiteral("(command \"_.circle\" '(20 30) 12.5)"));
        type(QStringLiteral("(command \"_.select\" (entlast) \"\")"));
    }
    ~WindowOnScreen() override { useColorScheme(ColorScheme::NoPreference); }

    MainWindow &window() { return interface.window(); }
    void use(ColorScheme scheme)
    {
        useColorScheme(scheme);
        QTest::qWait(300);
    }

    DrawingFiles files{interface.window(), runner, document};
    DrawingPanels panels{interface.window(), runner, document};
};

} // namespace

TEST_F(WindowOnScreen, ShowsCommandsErrorsLayersAndDataInLightAndDark)
{
    type(QStringLiteral("(defun area (r) (* pi r r))"));
    type(QStringLiteral("(area 12.5)"));
    type(QStringLiteral("(area \"wide\")"));
    EXPECT_THAT(output(), HasSubstr("error: bad argument type"));
    QTest::qWait(300);
    takePicture(window(), u"window"_qs);
    use(ColorScheme::Dark);
    takePicture(window(), u"window-dark"_qs);
}

TEST_F(WindowOnScreen, OffersNamesFromTheSecondLetterOn)
{
    QCompleter &completer = *window().findChild<QCompleter *>();
    typeText(window(), u"(vl-string-t"_qs);
    ASSERT_TRUE(QTest::qWaitFor([&] { return completer.popup()->isVisible(); }));
    QTest::qWait(300);
    takePicture(window(), u"window-names"_qs);
    typeKey(*completer.popup(), Qt::Key_Down);
    typeKey(*completer.popup(), Qt::Key_Return);
    EXPECT_EQ(input->text(), u"(vl-string-translate"_qs);
    EXPECT_FALSE(completer.popup()->isVisible());
}

TEST_F(WindowOnScreen, ShowsHowFarAProgramIsAndEscStopsIt)
{
    document.lispHost()->progressStart(u"Reading the drawing");
    document.lispHost()->progressSet(40);
    later([this] {
        QTest::qWait(300);
        takePicture(window(), u"window-progress"_qs);
        typeKey(window(), Qt::Key_Escape);
    });
    type(QStringLiteral("(while T)"));
    document.lispHost()->progressEnd();
    EXPECT_THAT(output(), HasSubstr("error: Function cancelled"));
}

TEST_F(WindowOnScreen, AsksInFrontOfTheInputAndTheKeyboardAnswers)
{
    later([this] {
        QTest::qWait(300);
        takePicture(window(), u"window-request"_qs);
        typeText(window(), u"3,4"_qs);
        typeKey(window(), Qt::Key_Return);
    });
    type(QStringLiteral("(getpoint \"\\nInsertion point: \")"));
    EXPECT_THAT(output(), EndsWith("Insertion point: 3,4\n(3.0 4.0 0.0)\n"));
}

TEST_F(WindowOnScreen, TheFileMenuOpensByItsMnemonic)
{
    typeKey(window(), Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::qWait(300);
    takePicture(window(), u"window-menu"_qs);
    typeKey(*QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }));
}
