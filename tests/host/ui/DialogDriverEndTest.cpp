#include "tests/host/ui/DriverTest.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

// What happens when answers run out or do not suit.

namespace {

using DialogDriverEnd = DriverTest;

// Ignores Esc, its close button and any other way out but one.
class StubbornDialog final : public QDialog
{
public:
    void done(int) override {}
    void reject() override {}

protected:
    void keyPressEvent(QKeyEvent *event) override { event->ignore(); }
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
};

int askYesNo()
{
    QMessageBox box(QMessageBox::Question, u"Title"_qs, u"Text"_qs, QMessageBox::Yes | QMessageBox::Abort);
    box.setEscapeButton(static_cast<QAbstractButton *>(nullptr));
    return box.exec();
}

} // namespace

TEST_F(DialogDriverEnd, ClosesADialogAsByEscapeAndNamesIt)
{
    EditorDialog dialog;
    dialog.setObjectName(u"any"_qs);
    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_EQ(warnings(), QStringList{u"no answer left for the dialog QDialog \"Editor\""_qs});
    EXPECT_TRUE(events()[0][u"answer"].isNull());
}

TEST_F(DialogDriverEnd, PressesOkInABoxThatHasNothingElse)
{
    QMessageBox box(QMessageBox::Information, u"Title"_qs, u"Text"_qs, QMessageBox::Ok);
    EXPECT_EQ(box.exec(), QMessageBox::Ok);
}

TEST_F(DialogDriverEnd, ClosesABoxThatDoesNotHeedEscape)
{
    EXPECT_NE(askYesNo(), QMessageBox::Yes);
    StubbornDialog dialog;
    EXPECT_EQ(dialog.exec(), 0);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogDriverEnd, ComesInBoundedTimeForAProgramThatShowsMoreDialogsThanThereAreAnswers)
{
    setAnswers(u"@press OK"_qs);
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 200; ++i)
        EditorDialog().exec();
    EXPECT_LT(time.elapsed(), 30000);
    EXPECT_EQ(events().size(), 200);
    EXPECT_EQ(warnings().size(), 199);
}

TEST_F(DialogDriverEnd, ComesInBoundedTimeForADialogThatOpensAnotherWheneverItIsRefused)
{
    int opened = 0;
    std::function<void()> open = [&] {
        if (++opened == 20)
            return;
        EditorDialog dialog;
        QObject::connect(&dialog, &QDialog::rejected, open);
        dialog.exec();
    };
    open();
    EXPECT_EQ(opened, 20);
}

TEST_F(DialogDriverEnd, AnAnswerThatDoesNotSuitClosesTheDialogAndIsNamed)
{
    setAnswers(u"10,20\n@press Apply\n@file x\n@move 1,2"_qs);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(EditorDialog().exec(), QDialog::Rejected);
    EXPECT_EQ(warnings().value(0), u"the answer of line 1, 10,20, does not suit the dialog QDialog \"Editor\""_qs);
    EXPECT_EQ(warnings().value(1),
              u"the answer of line 2, @press Apply, does not suit the dialog QDialog \"Editor\""_qs);
    EXPECT_EQ(warnings().size(), 4);
}

TEST_F(DialogDriverEnd, ADisabledButtonCannotBePressed)
{
    setAnswers(u"@press OK"_qs);
    EditorDialog dialog;
    for (QPushButton *button : dialog.findChildren<QPushButton *>())
        button->setEnabled(false);
    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_EQ(warnings().size(), 1);
}

TEST_F(DialogDriverEnd, ATextNeedsAnEditorThatCanBeWrittenTo)
{
    setAnswers(u"@text x\n@text y\n@press OK"_qs);
    QMessageBox box(QMessageBox::NoIcon, u"Title"_qs, u"Text"_qs, QMessageBox::Ok);
    box.exec();
    EXPECT_EQ(warnings(),
              QStringList{u"the answer of line 1, @text x, does not suit the dialog QMessageBox \"Title\""_qs});
    QDialog withLine;
    QLineEdit line(u"old"_qs, &withLine);
    QPushButton ok(u"OK"_qs, &withLine);
    QObject::connect(&ok, &QPushButton::clicked, &withLine, &QDialog::accept);
    EXPECT_EQ(withLine.exec(), QDialog::Accepted);
    EXPECT_EQ(line.text(), u"y"_qs);
}
