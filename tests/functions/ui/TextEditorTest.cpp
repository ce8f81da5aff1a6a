#include "dialogs/Dlg_MTextEditor.h"
#include "functions/ui.h"
#include "tests/functions/ui/UiTest.h"

namespace {

class TextEditor : public UiTest
{
protected:
    // The dialog is compared with what it should show, then the action ends it.
    void expectDialog(const QString &title, const QString &subtitle, const QString &content,
                      DialogWatcher::Action action)
    {
        person().expect([=, this](QDialog &dialog) {
            auto &editor = dynamic_cast<Dlg_MTextEditor &>(dialog);
            EXPECT_EQ(editor.parentWidget(), &mainWindow());
            EXPECT_EQ(editor.windowTitle(), title);
            EXPECT_EQ(editor.labelSubtitle->text(), subtitle);
            EXPECT_EQ(editor.textEditor->toPlainText(), content);
            m_dialogs += &editor;
            action(editor);
        });
    }

    const Arguments m_arguments = {text(u"line1\nline2"), text(u"Edit"), text(u"&Remark")};
    QList<Dlg_MTextEditor *> m_dialogs;
};

void closeByItsButton(QDialog &dialog)
{
    EXPECT_TRUE(dialog.close());
}

} // namespace

TEST_F(TextEditor, ShowsTitleSubtitleAndTwoLinesAndOkReturnsTheEditedText)
{
    expectDialog(u"Edit"_qs, u"&Remark"_qs, u"line1\nline2"_qs, [](QDialog &dialog) {
        auto &editor = dynamic_cast<Dlg_MTextEditor &>(dialog);
        EXPECT_EQ(editor.textEditor->blockCount(), 2);
        editor.textEditor->appendPlainText(u"line3"_qs);
        press(u"OK"_qs)(dialog);
    });
    EXPECT_EQ(call(acetUiTxted, m_arguments),
              (Operations{"getArgs", "releaseRb 3", operation("retWStr", "line1\nline2\nline3")}));
}

TEST_F(TextEditor, CancelEscapeOrTheCloseButtonReturnNil)
{
    for (const DialogWatcher::Action &action :
         {press(u"Cancel"_qs), pressKey(Qt::Key_Escape), DialogWatcher::Action(closeByItsButton)}) {
        expectDialog(u"Edit"_qs, u"&Remark"_qs, u"line1\nline2"_qs, action);
        EXPECT_EQ(call(acetUiTxted, m_arguments), (Operations{"getArgs", "releaseRb 3", "retNil"}));
    }
    EXPECT_EQ(person().shown(), 3);
}

TEST_F(TextEditor, WithATextAlonePrintsTooFewArgumentsOnceAndOpensWithAnEmptyTitleAndLabel)
{
    expectDialog(QString(), QString(), u"abc"_qs, press(u"OK"_qs));
    EXPECT_EQ(call(acetUiTxted, {text(u"abc")}),
              (Operations{"getArgs", tooFewArguments, "retNil", "releaseRb null", operation("retWStr", "abc")}));
}

TEST_F(TextEditor, WithoutArgumentsOrWithAWrongOneStillOpens)
{
    expectDialog(QString(), QString(), QString(), press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiTxted, {}), (Operations{"getArgs", tooFewArguments, "retNil", "retNil"}));
    expectDialog(QString(), QString(), QString(), press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiTxted, {shortInteger(1), text(u"T"), text(u"S")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1", "retNil"}));
    expectDialog(u"T"_qs, QString(), u"abc"_qs, press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiTxted, {text(u"abc"), text(u"T"), real(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 3", "releaseRb null", "retNil"}));
}

TEST_F(TextEditor, ReturnsTheLineEndsOfItsEditor)
{
    expectDialog(u"T"_qs, u"S"_qs, u"a\nb\nc\\nd"_qs, press(u"OK"_qs));
    EXPECT_EQ(call(acetUiTxted, {text(u"a\r\nb\rc\\nd"), text(u"T"), text(u"S")}),
              (Operations{"getArgs", "releaseRb 3", operation("retWStr", "a\nb\nc\\nd")}));
}

TEST_F(TextEditor, IsOneDialogOfWhichEachCallLeavesNothingToTheNext)
{
    expectDialog(u"Edit"_qs, u"&Remark"_qs, u"line1\nline2"_qs, press(u"OK"_qs));
    call(acetUiTxted, m_arguments);
    expectDialog(QString(), QString(), QString(), press(u"OK"_qs));
    EXPECT_EQ(call(acetUiTxted, {text(u""), text(u""), text(u"")}),
              (Operations{"getArgs", "releaseRb 3", operation("retWStr", "")}));
    EXPECT_EQ(m_dialogs.value(0), m_dialogs.value(1));
}
