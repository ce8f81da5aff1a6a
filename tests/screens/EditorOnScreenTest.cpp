#include "dialogs/Dlg_MTextEditor.h"
#include "functions/ui.h"
#include "host/ui/gui/DesktopColors.h"
#include "tests/screens/Screen.h"

#include <QTest>
#include <QWindow>

namespace {

class EditorOnScreen : public ScreenTest
{
protected:
    using Use = std::function<void(Dlg_MTextEditor &)>;

    // The last operation of a call whose dialog is used so.
    std::string resultOf(Use use, const std::u16string &subtitle = u"&Remark")
    {
        person().expect([use](QDialog &dialog) {
            waitUntilReady(dialog);
            use(dynamic_cast<Dlg_MTextEditor &>(dialog));
            QTest::qWait(0);
        });
        const std::u16string text = u"The beam rests on two columns.\nCheck the left one.";
        return call(acetUiTxted, {::text(text), ::text(u"Edit remark"), ::text(subtitle)}).back();
    }
};

} // namespace

TEST_F(EditorOnScreen, TakesWhatIsTypedAndOkIsClicked)
{
    const std::string result = resultOf([](Dlg_MTextEditor &dialog) {
        EXPECT_TRUE(dialog.textEditor->hasFocus());
        typeText(dialog, u"Note: "_qs);
        takePicture(dialog, u"editor"_qs);
        click(*dialog.okButton);
    });
    EXPECT_EQ(result, operation("retWStr", "Note: The beam rests on two columns.\nCheck the left one."));
}

TEST_F(EditorOnScreen, AltAndTheMnemonicOfTheSubtitleFocusTheEditor)
{
    for (const auto &[subtitle, key] : {std::pair{u"&Remark", Qt::Key_R}, std::pair{u"&Note", Qt::Key_N}}) {
        resultOf(
            [key = key](Dlg_MTextEditor &dialog) {
                dialog.cancelButton->setFocus();
                EXPECT_FALSE(dialog.textEditor->hasFocus());
                typeKey(dialog, key, Qt::AltModifier);
                EXPECT_TRUE(dialog.textEditor->hasFocus());
                click(*dialog.cancelButton);
            },
            subtitle);
    }
}

TEST_F(EditorOnScreen, EscapeTheCloseButtonAndCancelGiveNil)
{
    EXPECT_EQ(resultOf([](Dlg_MTextEditor &dialog) { typeKey(dialog, Qt::Key_Escape); }), "retNil");
    EXPECT_EQ(resultOf([](Dlg_MTextEditor &dialog) { dialog.windowHandle()->close(); }), "retNil");
    EXPECT_EQ(resultOf([](Dlg_MTextEditor &dialog) { click(*dialog.cancelButton); }), "retNil");
}

TEST_F(EditorOnScreen, TabGoesFromButtonToButtonAndOnToTheEditorWhereItIsTyped)
{
    resultOf([](Dlg_MTextEditor &dialog) {
        dialog.okButton->setFocus();
        typeKey(dialog, Qt::Key_Tab);
        EXPECT_TRUE(dialog.cancelButton->hasFocus());
        typeKey(dialog, Qt::Key_Tab);
        EXPECT_TRUE(dialog.textEditor->hasFocus());
        typeKey(dialog, Qt::Key_Tab);
        EXPECT_TRUE(dialog.textEditor->hasFocus());
        EXPECT_TRUE(dialog.textEditor->toPlainText().contains(u'\t'));
        typeKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(EditorOnScreen, CanBeResizedWithinItsLimits)
{
    resultOf([](Dlg_MTextEditor &dialog) {
        EXPECT_EQ(dialog.size(), QSize(400, 350));
        dialog.resize(1000, 900);
        QTest::qWait(200);
        EXPECT_EQ(dialog.size(), QSize(800, 600));
        takePicture(dialog, u"editor-largest"_qs);
        dialog.resize(100, 100);
        QTest::qWait(200);
        EXPECT_EQ(dialog.size(), QSize(400, 350));
        typeKey(dialog, Qt::Key_Escape);
    });
}

TEST_F(EditorOnScreen, IsReadableInDarkColours)
{
    useColorScheme(ColorScheme::Dark);
    resultOf([](Dlg_MTextEditor &dialog) {
        takePicture(dialog, u"editor-dark"_qs);
        const QPalette palette = dialog.textEditor->palette();
        EXPECT_GT(palette.color(QPalette::Text).lightness(), palette.color(QPalette::Base).lightness() + 128);
        typeKey(dialog, Qt::Key_Escape);
    });
    useColorScheme(ColorScheme::NoPreference);
}

TEST_F(EditorOnScreen, HasIconsMadeForTheDensityOfTheScreen)
{
    resultOf([](Dlg_MTextEditor &dialog) {
        const QSize size = dialog.okButton->iconSize();
        EXPECT_EQ(size, QSize(16, 16));
        const double density = dialog.devicePixelRatio();
        EXPECT_EQ(dialog.okButton->icon().pixmap(size, density).size(), size * density);
        typeKey(dialog, Qt::Key_Escape);
    });
}
