#include "functions/uimessages.h"
#include "tests/functions/ui/UiTest.h"

#include <QMessageBox>
#include <QPushButton>

// What the box does with each code is the business of MessageBoxW's own tests: on Windows the box is the system's.
#ifndef _WIN32

namespace {

class Message : public UiTest
{
protected:
    void expectBox(const QString &button)
    {
        person().expect([this, button](QDialog &dialog) {
            auto &box = dynamic_cast<QMessageBox &>(dialog);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            m_text = box.text();
            m_title = box.windowTitle();
            m_buttons.clear();
            for (const QPushButton *pushButton : box.findChildren<QPushButton *>())
                m_buttons += pushButton->text();
            press(button)(dialog);
        });
    }

    QString shownText(const std::u16string &given)
    {
        expectBox(u"OK"_qs);
        call(acetUiMessage, {text(given), text(u"T"), shortInteger(0)});
        return m_text;
    }

    QString m_text;
    QString m_title;
    QStringList m_buttons;
};

} // namespace

TEST_F(Message, WithoutATitleShowsTwoLinesAnEmptyCaptionAndOnlyOkAndTheResultIs1)
{
    expectBox(u"OK"_qs);
    EXPECT_EQ(call(acetUiMessage, {text(u"a\\nb")}),
              (Operations{"getArgs", tooFewArguments, "retNil", "retInt 1", "releaseRb null"}));
    EXPECT_EQ(m_text, u"a\nb"_qs);
    EXPECT_EQ(m_title, QString());
    EXPECT_EQ(m_buttons, QStringList{u"OK"_qs});
}

TEST_F(Message, HandsTextTitleAndCodeToTheSystemAndGivesItsResult)
{
    expectBox(u"&No"_qs);
    EXPECT_EQ(call(acetUiMessage, {text(u"<b>x</b>"), text(u"a\\tb"), shortInteger(36)}),
              (Operations{"getArgs", "retInt 7", "releaseRb 3"}));
    EXPECT_EQ(m_text, u"<b>x</b>"_qs);
    EXPECT_EQ(m_title, u"a\\tb"_qs) << "no escapes in titles";
}

TEST_F(Message, ExpandsTheEscapesOfTheTextAlone)
{
    EXPECT_EQ(shownText(u"a\\nb\\rc\\td"), u"a\nb\rc\td"_qs);
    EXPECT_EQ(shownText(u"a\\\\nb"), u"a\\\nb"_qs) << "there is no escape for the backslash";
    EXPECT_EQ(shownText(u"a\\\\b\\"), u"a\\\\b\\"_qs);
    EXPECT_EQ(shownText(u"a\\N\\x"), u"a\\N\\x"_qs);
}

TEST_F(Message, ACodeThatTheSystemDoesNotKnowGives0)
{
    EXPECT_EQ(call(acetUiMessage, {text(u"x"), text(u"T"), shortInteger(15)}),
              (Operations{"getArgs", "retInt 0", "releaseRb 3"}));
    EXPECT_EQ(person().shown(), 0);
}

TEST_F(Message, ReadsTheCodeWithItsSign)
{
    // All bits: among them buttons that do not exist.
    EXPECT_EQ(call(acetUiMessage, {text(u"x"), text(u"T"), shortInteger(-1)}),
              (Operations{"getArgs", "retInt 0", "releaseRb 3"}));
    // The sign carries into MB_SERVICE_NOTIFICATION's bit and above, which without an owner is a box like others.
    expectBox(u"OK"_qs);
    EXPECT_EQ(call(acetUiMessage, {text(u"x"), text(u"T"), shortInteger(std::int16_t(0x8000))}),
              (Operations{"getArgs", "retInt 1", "releaseRb 3"}));
}

TEST_F(Message, ATitleThatIsNotAStringLeavesTheCodeUnreadAndShowsTheBoxWithAnEmptyCaptionAndOkOnly)
{
    expectBox(u"OK"_qs);
    EXPECT_EQ(call(acetUiMessage, {text(u"x"), shortInteger(1), shortInteger(36)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "retInt 1", "releaseRb null"}));
    EXPECT_EQ(m_title, QString());
    EXPECT_EQ(m_buttons, QStringList{u"OK"_qs});
}

TEST_F(Message, WithoutAMessageShowsNothing)
{
    EXPECT_EQ(call(acetUiMessage, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetUiMessage, {shortInteger(1)}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(person().shown(), 0);
}

#endif
