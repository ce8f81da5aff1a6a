#include "functions/uimessages.h"
#include "tests/functions/ui/UiTest.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace {

// What a box shows.
struct Seen
{
    QString text;
    QString title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
};

bool operator==(const Seen &left, const Seen &right)
{
    return left.text == right.text && left.title == right.title && left.icon == right.icon &&
           left.buttons == right.buttons;
}

void PrintTo(const Seen &seen, std::ostream *stream)
{
    *stream << QStringList({seen.title, seen.text, seen.buttons.join(u',')}).join(u'|').toStdString() << seen.icon;
}

class MessageHtml : public UiTest
{
protected:
    // The box is looked at, then the action ends it.
    void expectBox(DialogWatcher::Action action)
    {
        person().expect([this, action](QDialog &dialog) {
            auto &box = dynamic_cast<QMessageBox &>(dialog);
            EXPECT_STREQ(box.metaObject()->className(), "CFxMessageBox");
            EXPECT_EQ(box.textFormat(), Qt::RichText);
            EXPECT_EQ(box.parent(), nullptr);
            EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
            EXPECT_FALSE(box.testAttribute(Qt::WA_QuitOnClose));
            m_seen = {box.text(), box.windowTitle(), box.icon(), {}};
            for (const QPushButton *button : box.findChildren<QPushButton *>())
                m_seen.buttons += button->text();
            action(dialog);
        });
    }

    // The result of a box with this code after a button was pressed; the box must have been shown.
    Operations pressed(std::int16_t code, const QString &button)
    {
        expectBox(press(button));
        return call(acetUiMessageHtml, {text(u"x"), text(u"T"), shortInteger(code)});
    }

    static Operations result(int button) { return {"getArgs", "retInt " + std::to_string(button), "releaseRb 3"}; }

    Seen m_seen;
};

const QStringList ok = {u"OK"_qs};
const QStringList okCancel = {u"OK"_qs, u"Cancel"_qs};
const QStringList yesNo = {u"&Yes"_qs, u"&No"_qs};

} // namespace

TEST_F(MessageHtml, Code36ShowsQuestionIconYesAndNoAndYesGives6NoGives7)
{
    expectBox(press(u"&Yes"_qs));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"<b>x</b>"), text(u"T"), shortInteger(36)}), result(6));
    EXPECT_EQ(m_seen, (Seen{u"<b>x</b>"_qs, u"T"_qs, QMessageBox::Question, yesNo}));
    EXPECT_EQ(pressed(36, u"&No"_qs), result(7));
}

TEST_F(MessageHtml, Code289DropsTheDefaultButtonValueAndEscapeOrCancelGives2)
{
    EXPECT_EQ(pressed(289, u"Cancel"_qs), result(2));
    EXPECT_EQ(m_seen, (Seen{u"x"_qs, u"T"_qs, QMessageBox::Question, okCancel}));
    expectBox(pressKey(Qt::Key_Escape));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), text(u"T"), shortInteger(289)}), result(2));
}

TEST_F(MessageHtml, Code6ShowsNoBoxAndTheResultIs0)
{
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), text(u"T"), shortInteger(6)}), result(0));
    EXPECT_EQ(person().shown(), 0);
}

TEST_F(MessageHtml, Code4096IsTakenForTheInformationIconWithUnknownButtonsAndTheResultIs0)
{
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), text(u"T"), shortInteger(4096)}), result(0));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), text(u"T"), shortInteger(-1)}), result(0)) << "unsigned";
    EXPECT_EQ(person().shown(), 0);
}

TEST_F(MessageHtml, OffersTheButtonsOfEachValueAndGivesTheirNumbers)
{
    EXPECT_EQ(pressed(0, u"OK"_qs), result(1));
    EXPECT_EQ(m_seen.buttons, ok);
    EXPECT_EQ(pressed(1, u"OK"_qs), result(1));
    EXPECT_EQ(pressed(2, u"Abort"_qs), result(3));
    EXPECT_EQ(m_seen.buttons, (QStringList{u"Abort"_qs, u"Retry"_qs, u"Ignore"_qs}));
    EXPECT_EQ(pressed(2, u"Retry"_qs), result(4));
    EXPECT_EQ(pressed(2, u"Ignore"_qs), result(5));
    EXPECT_EQ(pressed(3, u"Cancel"_qs), result(2));
    EXPECT_EQ(m_seen.buttons, (QStringList{u"&Yes"_qs, u"&No"_qs, u"Cancel"_qs}));
    EXPECT_EQ(pressed(5, u"Cancel"_qs), result(2));
    EXPECT_EQ(m_seen.buttons, (QStringList{u"Retry"_qs, u"Cancel"_qs}));
}

TEST_F(MessageHtml, ChoosesTheIconByTheValueThatIsLeft)
{
    struct Row
    {
        std::int16_t code;
        QMessageBox::Icon icon;
    };
    for (const Row row :
         {Row{4, QMessageBox::NoIcon}, Row{20, QMessageBox::Critical}, Row{36, QMessageBox::Question},
          Row{52, QMessageBox::Warning}, Row{68, QMessageBox::Information}, Row{256 + 68, QMessageBox::Information},
          Row{512 + 52, QMessageBox::Warning}, Row{768 + 20, QMessageBox::Critical}}) {
        EXPECT_EQ(pressed(row.code, u"&Yes"_qs), result(6)) << row.code;
        EXPECT_EQ(m_seen.icon, row.icon) << row.code;
        EXPECT_EQ(m_seen.buttons, yesNo) << row.code;
    }
}

TEST_F(MessageHtml, WithoutATitleIsShownAllTheSame)
{
    expectBox(press(u"OK"_qs));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"a\\nb")}),
              (Operations{"getArgs", tooFewArguments, "retNil", "retInt 1", "releaseRb null"}));
    EXPECT_EQ(m_seen, (Seen{u"a\nb"_qs, QString(), QMessageBox::NoIcon, ok}));
}

TEST_F(MessageHtml, ATitleThatIsNotAStringLeavesTheCodeUnreadAndShowsTheBoxWithAnEmptyCaptionAndOkOnly)
{
    expectBox(press(u"OK"_qs));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), real(1), shortInteger(36)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "retInt 1", "releaseRb null"}));
    EXPECT_EQ(m_seen, (Seen{u"x"_qs, QString(), QMessageBox::NoIcon, ok}));
}

TEST_F(MessageHtml, ACodeThatIsMissingOrNoShortIntegerCountsAs0)
{
    expectBox(press(u"OK"_qs));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), text(u"a\\nb")}),
              (Operations{"getArgs", tooFewArguments, "retNil", "retInt 1", "releaseRb null"}));
    EXPECT_EQ(m_seen.title, u"a\\nb"_qs) << "no escapes in titles";
    expectBox(press(u"OK"_qs));
    EXPECT_EQ(call(acetUiMessageHtml, {text(u"x"), text(u"T"), longInteger(36)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 3", "retInt 1", "releaseRb null"}));
    EXPECT_EQ(m_seen.buttons, ok);
}

TEST_F(MessageHtml, WithoutAMessageShowsNothing)
{
    EXPECT_EQ(call(acetUiMessageHtml, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetUiMessageHtml, {nil(), text(u"T")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(person().shown(), 0);
}
