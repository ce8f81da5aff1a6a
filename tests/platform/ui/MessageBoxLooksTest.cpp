#include "tests/platform/ui/MessageBoxTest.h"

#include <QLabel>

// Icons, modality, placement on the screen and the direction of the text.

namespace {

class MessageBoxLooks : public MessageBoxTest
{
protected:
    void look(UINT type, Look look, QWidget *owner = nullptr) { show(type, press(u"OK"_qs), look, owner); }
};

const QLabel &textLabel(const QMessageBox &box)
{
    return child<QLabel>(box, "qt_msgbox_label");
}

} // namespace

TEST_F(MessageBoxLooks, TheTypeSaysTheIcon)
{
    const std::pair<UINT, QMessageBox::Icon> icons[] = {
        {0, QMessageBox::NoIcon},
        {MB_ICONERROR, QMessageBox::Critical},
        {MB_ICONQUESTION, QMessageBox::Question},
        {MB_ICONWARNING, QMessageBox::Warning},
        {MB_ICONINFORMATION, QMessageBox::Information},
        {0x80, QMessageBox::NoIcon},
    };
    for (const auto &[type, icon] : icons)
        look(type, [icon = icon](QMessageBox &box) { EXPECT_EQ(box.icon(), icon); });
}

TEST_F(MessageBoxLooks, TextAndCaptionAreShownAsTheyAre)
{
    person().expect([](QDialog &dialog) {
        const auto &box = dynamic_cast<QMessageBox &>(dialog);
        EXPECT_EQ(box.text(), u"<b>a</b> & b\nc"_qs);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), u"caption"_qs);
        EXPECT_STREQ(box.metaObject()->className(), "QMessageBox");
        EXPECT_FALSE(box.testAttribute(Qt::WA_QuitOnClose));
        press(u"OK"_qs)(dialog);
    });
    MessageBoxW(nullptr, u"<b>a</b> & b\nc", u"caption", MB_OK);
}

TEST_F(MessageBoxLooks, WithoutACaptionItSaysErrorAndWithoutATextNothing)
{
    person().expect([](QDialog &dialog) {
        EXPECT_EQ(dynamic_cast<QMessageBox &>(dialog).text(), QString());
        EXPECT_EQ(dialog.windowTitle(), u"Error"_qs);
        press(u"OK"_qs)(dialog);
    });
    EXPECT_EQ(MessageBoxW(nullptr, nullptr, nullptr, MB_OK), IDOK);
}

TEST_F(MessageBoxLooks, TheTypeSaysWhatIsBlockedMeanwhile)
{
    QWidget owner;
    const auto modality = [](Qt::WindowModality expected) {
        return [expected](QMessageBox &box) { EXPECT_EQ(box.windowModality(), expected); };
    };
    look(MB_APPLMODAL, modality(Qt::WindowModal), &owner);
    look(MB_SYSTEMMODAL, modality(Qt::WindowModal), &owner);
    look(MB_TASKMODAL, modality(Qt::ApplicationModal), &owner);
    look(MB_APPLMODAL, modality(Qt::ApplicationModal));
    look(MB_TASKMODAL, modality(Qt::ApplicationModal));
}

TEST_F(MessageBoxLooks, SystemModalAndTopmostBoxesStayOnTop)
{
    const auto onTop = [](bool expected) {
        return
            [expected](QMessageBox &box) { EXPECT_EQ(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint), expected); };
    };
    look(MB_APPLMODAL, onTop(false));
    look(MB_TASKMODAL, onTop(false));
    look(MB_SYSTEMMODAL, onTop(true));
    look(MB_TOPMOST, onTop(true));
}

TEST_F(MessageBoxLooks, MayBeShownWithoutTheFocus)
{
    look(MB_NOFOCUS, [](QMessageBox &box) { EXPECT_TRUE(box.testAttribute(Qt::WA_ShowWithoutActivating)); });
    look(MB_OK, [](QMessageBox &box) { EXPECT_FALSE(box.testAttribute(Qt::WA_ShowWithoutActivating)); });
}

TEST_F(MessageBoxLooks, TheDesktopThatItIsForMakesNoDifference)
{
    const auto plain = [](QMessageBox &box) {
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    };
    EXPECT_EQ(show(MB_YESNO | MB_DEFAULT_DESKTOP_ONLY, press(u"&No"_qs), plain), IDNO);
}

TEST_F(MessageBoxLooks, RightPutsTheTextAtTheRight)
{
    look(MB_RIGHT, [](QMessageBox &box) {
        EXPECT_EQ(textLabel(box).alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight | Qt::AlignAbsolute);
        EXPECT_EQ(box.layoutDirection(), Qt::LeftToRight);
    });
    look(MB_OK, [](QMessageBox &box) { EXPECT_FALSE(textLabel(box).alignment().testFlag(Qt::AlignRight)); });
}

TEST_F(MessageBoxLooks, RightToLeftReadingTurnsTheBoxRound)
{
    look(MB_RTLREADING, [](QMessageBox &box) { EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft); });
}

TEST_F(MessageBoxLooks, HasItsOwnerAsParent)
{
    QWidget owner;
    look(
        MB_OK, [&](QMessageBox &box) { EXPECT_EQ(box.parentWidget(), &owner); }, &owner);
}
