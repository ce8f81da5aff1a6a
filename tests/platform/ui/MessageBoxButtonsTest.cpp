#include "tests/platform/ui/MessageBoxTest.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <utility>
#include <vector>

// Buttons, their IDs, the default one, and what Esc and the close button are.

namespace {

struct ButtonSet
{
    UINT type;
    std::vector<std::pair<QString, int>> buttons; // text and ID, in order
    int escape;                                   // 0: the box cannot be closed without a button
};

const ButtonSet buttonSets[] = {
    {MB_OK, {{u"OK"_qs, IDOK}}, IDOK},
    {MB_OKCANCEL, {{u"OK"_qs, IDOK}, {u"Cancel"_qs, IDCANCEL}}, IDCANCEL},
    {MB_ABORTRETRYIGNORE, {{u"&Abort"_qs, IDABORT}, {u"&Retry"_qs, IDRETRY}, {u"&Ignore"_qs, IDIGNORE}}, 0},
    {MB_YESNOCANCEL, {{u"&Yes"_qs, IDYES}, {u"&No"_qs, IDNO}, {u"Cancel"_qs, IDCANCEL}}, IDCANCEL},
    {MB_YESNO, {{u"&Yes"_qs, IDYES}, {u"&No"_qs, IDNO}}, 0},
    {MB_RETRYCANCEL, {{u"&Retry"_qs, IDRETRY}, {u"Cancel"_qs, IDCANCEL}}, IDCANCEL},
    {MB_CANCELTRYCONTINUE,
     {{u"Cancel"_qs, IDCANCEL}, {u"&Try Again"_qs, IDTRYAGAIN}, {u"&Continue"_qs, IDCONTINUE}},
     IDCANCEL},
};

class MessageBoxButtons : public MessageBoxTest, public testing::WithParamInterface<ButtonSet>
{
protected:
    QStringList texts() const
    {
        QStringList result;
        for (const auto &[text, id] : GetParam().buttons)
            result += text;
        return result;
    }
};

QPushButton *defaultButton(const QMessageBox &box)
{
    for (QPushButton *button : box.findChildren<QPushButton *>())
        if (button->isDefault())
            return button;
    return nullptr;
}

} // namespace

TEST_P(MessageBoxButtons, GiveTheirDocumentedIds)
{
    for (const auto &[text, id] : GetParam().buttons)
        EXPECT_EQ(show(GetParam().type, press(text)), id) << text.toStdString();
}

TEST_P(MessageBoxButtons, StandInTheirDocumentedOrder)
{
    show(GetParam().type, press(texts()[0]), [this](QMessageBox &box) {
        QList<QPushButton *> buttons = box.findChildren<QPushButton *>();
        std::ranges::sort(buttons, {}, [](const QPushButton *button) { return button->x(); });
        QStringList fromLeftToRight;
        for (const QPushButton *button : buttons)
            fromLeftToRight += button->text();
        EXPECT_EQ(fromLeftToRight, texts());
    });
}

TEST_P(MessageBoxButtons, OneIsTheDefaultAsTheTypeSaysAndTheFirstWhenThereIsNoSuchButton)
{
    for (const UINT index : {0u, 1u, 2u, 3u}) {
        const QString expected = texts().value(int(index), texts()[0]);
        show(GetParam().type | (index * MB_DEFBUTTON2), press(expected), [&](QMessageBox &box) {
            ASSERT_NE(defaultButton(box), nullptr);
            EXPECT_EQ(defaultButton(box)->text(), expected) << index;
        });
    }
}

TEST_P(MessageBoxButtons, HelpIsTheLastOneAndCanBeTheDefault)
{
    const auto index = UINT(texts().size());
    show(GetParam().type | MB_HELP | (index * MB_DEFBUTTON2), press(texts()[0]), [](QMessageBox &box) {
        ASSERT_NE(defaultButton(box), nullptr);
        EXPECT_EQ(defaultButton(box)->text(), u"&Help"_qs);
    });
}

TEST_P(MessageBoxButtons, EscapeAndTheCloseButtonAreCancelOrALoneOkAndElseDoNothing)
{
    for (const DialogWatcher::Action &closing : {pressKey(Qt::Key_Escape), DialogWatcher::Action(closeByItsButton)}) {
        const auto closingThenFirst = [&](QDialog &dialog) {
            closing(dialog);
            EXPECT_EQ(dialog.isVisible(), GetParam().escape == 0);
            if (dialog.isVisible())
                press(texts()[0])(dialog);
        };
        const int first = GetParam().buttons[0].second;
        EXPECT_EQ(show(GetParam().type, closingThenFirst), GetParam().escape != 0 ? GetParam().escape : first);
    }
}

TEST_P(MessageBoxButtons, ABoxThatCannotBeClosedHasNoCloseButton)
{
    show(GetParam().type, press(texts()[0]), [](QMessageBox &box) {
        EXPECT_EQ(box.windowFlags().testFlag(Qt::WindowCloseButtonHint), GetParam().escape != 0);
    });
}

TEST_P(MessageBoxButtons, HelpAsksTheOwnerAndLeavesTheBoxOpen)
{
    class Owner final : public QWidget
    {
    public:
        int helpRequests = 0;

    protected:
        bool event(QEvent *event) override
        {
            helpRequests += event->type() == QEvent::HelpRequest ? 1 : 0;
            return QWidget::event(event);
        }
    } owner;
    const auto helpThenFirst = [this](QDialog &dialog) {
        press(u"&Help"_qs)(dialog);
        EXPECT_TRUE(dialog.isVisible());
        QCoreApplication::sendPostedEvents(dialog.parentWidget());
        press(texts()[0])(dialog);
    };
    EXPECT_EQ(show(GetParam().type | MB_HELP, helpThenFirst, {[](QMessageBox &) {}}, &owner),
              GetParam().buttons[0].second);
    EXPECT_EQ(owner.helpRequests, 1);
}

INSTANTIATE_TEST_SUITE_P(, MessageBoxButtons, testing::ValuesIn(buttonSets),
                         [](const auto &row) { return "Type" + std::to_string(row.param.type); });
