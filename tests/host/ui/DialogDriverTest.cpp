#include "tests/host/ui/DriverTest.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

class DialogDriverTest : public DriverTest
{
protected:
    static QMessageBox::StandardButton ask(QMessageBox::StandardButtons buttons)
    {
        QMessageBox box(QMessageBox::Question, u"Title"_qs, u"Text"_qs, buttons);
        return QMessageBox::StandardButton(box.exec());
    }
};

} // namespace

TEST_F(DialogDriverTest, PressesAButtonByItsTextWithoutMnemonicOrByItsName)
{
    setAnswers(u"@press Yes\n@press theButton"_qs);
    EXPECT_EQ(ask(QMessageBox::Yes | QMessageBox::No), QMessageBox::Yes);
    QMessageBox box;
    QPushButton *button = box.addButton(u"A && &B"_qs, QMessageBox::AcceptRole);
    button->setObjectName(u"theButton"_qs);
    box.addButton(u"Other"_qs, QMessageBox::RejectRole);
    box.exec();
    EXPECT_EQ(box.clickedButton(), button);
    setAnswers(u"@press A & B"_qs);
    box.exec();
    EXPECT_EQ(box.clickedButton(), button);
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(DialogDriverTest, TypesTextsInPlaceOfTheOldBeforeItPressesAButton)
{
    setAnswers(u"@text first\n@text a\\nb\\tc\\\\\n@press OK"_qs);
    EditorDialog dialog;
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(dialog.text(), u"a\nb\tc\\"_qs);
}

TEST_F(DialogDriverTest, EscapeClosesADialog)
{
    setAnswers(u"@esc\n@esc"_qs);
    EditorDialog dialog;
    EXPECT_EQ(dialog.exec(), QDialog::Rejected);
    EXPECT_EQ(ask(QMessageBox::Ok | QMessageBox::Cancel), QMessageBox::Cancel);
}

TEST_F(DialogDriverTest, GoesOnWithTheNextAnswerWhileTheDialogStaysOpen)
{
    setAnswers(u"@press More\n@press More\n@press OK"_qs);
    EditorDialog dialog;
    auto *more = new QPushButton(u"More"_qs, &dialog);
    int pressed = 0;
    QObject::connect(more, &QPushButton::clicked, [&] { ++pressed; });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(pressed, 2);
    EXPECT_EQ(events().size(), 3);
}

TEST_F(DialogDriverTest, AnswersADialogThatIsOpenedWhileAnotherAnswers)
{
    setAnswers(u"@press More\n@press No\n@press OK"_qs);
    EditorDialog dialog;
    auto *more = new QPushButton(u"More"_qs, &dialog);
    QMessageBox::StandardButton inner = QMessageBox::NoButton;
    QObject::connect(more, &QPushButton::clicked, [&] { inner = ask(QMessageBox::Yes | QMessageBox::No); });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(inner, QMessageBox::No);
    ASSERT_EQ(events().size(), 3);
    EXPECT_EQ(events()[0][u"answer"].toString(), u"@press More"_qs);
    EXPECT_EQ(events()[1][u"class"].toString(), u"QMessageBox"_qs);
}

TEST_F(DialogDriverTest, AnswersDialogsNestedDeeply)
{
    QString answers;
    constexpr int Depth = 30;
    for (int i = 0; i < Depth; ++i)
        answers += u"@press More\n"_qs;
    for (int i = 0; i <= Depth; ++i)
        answers += u"@press OK\n"_qs;
    setAnswers(answers);
    std::function<int(int)> open = [&](int depth) {
        EditorDialog dialog;
        auto *more = new QPushButton(u"More"_qs, &dialog);
        int below = 0;
        QObject::connect(more, &QPushButton::clicked, [&] { below = depth > 0 ? open(depth - 1) : 0; });
        return dialog.exec() == QDialog::Accepted ? below + 1 : -1000;
    };
    EXPECT_EQ(open(Depth), Depth + 1);
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(DialogDriverTest, ChoosesAFileInADialogOfTheStaticCall)
{
    QFile(path(u"there.txt"_qs)).open(QFile::WriteOnly);
    setAnswers(u"@file "_qs + path(u"there.txt"_qs) + u"\n@file there.txt\n@esc"_qs);
    const auto ask = [this] { return QFileDialog::getOpenFileName(nullptr, u"Open"_qs, path(u""_qs)); };
    EXPECT_EQ(ask(), path(u"there.txt"_qs));
    EXPECT_EQ(ask(), path(u"there.txt"_qs)) << "relative to the dialog's folder";
    EXPECT_EQ(ask(), QString());
}

TEST_F(DialogDriverTest, ChoosesAFolder)
{
    QDir(path(u""_qs)).mkdir(u"inner"_qs);
    setAnswers(u"@file inner"_qs);
    EXPECT_EQ(QFileDialog::getExistingDirectory(nullptr, u"Where?"_qs, path(u""_qs)), path(u"inner"_qs));
}

TEST_F(DialogDriverTest, TheQuestionWhetherToOverwriteIsAnsweredInTurn)
{
    QFile(path(u"there.txt"_qs)).open(QFile::WriteOnly);
    setAnswers(u"@file there.txt\n@press No\n@file there.txt\n@press Yes"_qs);
    EXPECT_EQ(QFileDialog::getSaveFileName(nullptr, u"Save"_qs, path(u""_qs)), path(u"there.txt"_qs));
    EXPECT_EQ(events().size(), 4);
}

TEST_F(DialogDriverTest, AFileThatIsNotThereIsRefusedByTheDialog)
{
    setAnswers(u"@file missing.txt\n@press OK\n@press Cancel"_qs);
    EXPECT_EQ(QFileDialog::getOpenFileName(nullptr, u"Open"_qs, path(u""_qs)), QString());
    ASSERT_EQ(events().size(), 3);
    EXPECT_TRUE(events()[1][u"text"].toString().contains(u"missing.txt"));
}
