#include "dialogs/Dlg_QT_ShowHtmlModalWindow.h"
#include "functions/ui.h"
#include "host/sdk/ui/HostSdkUi.h"
#include "tests/functions/ui/UiTest.h"

#include <QTextBrowser>

namespace {

// Remembers the pages.
class PageView final : public CFxWebView
{
public:
    QWidget *widget() override { return m_browser; }
    void openPage(const QString &page) override { m_browser->setPlainText(page); }
    void loadUrl(const QString &) override {}

private:
    QTextBrowser *m_browser = new QTextBrowser; // the dialog's, as its child
};

class HtmlWindow : public UiTest
{
protected:
    HtmlWindow()
    {
        HostSdk::installWebViewMaker([]() -> CFxWebView * { return new PageView; });
    }
    ~HtmlWindow() override { HostSdk::installWebViewMaker(nullptr); }

    void expectPage(const QString &page, DialogWatcher::Action action)
    {
        person().expect([=, this](QDialog &dialog) {
            EXPECT_STREQ(dialog.metaObject()->className(), "Dlg_QT_ShowHtmlModalWindow");
            EXPECT_EQ(dialog.windowTitle(), u"Show HTML Modal Window"_qs);
            EXPECT_EQ(dialog.size(), QSize(640, 480));
            EXPECT_EQ(dialog.parentWidget(), &mainWindow());
            EXPECT_EQ(dialog.findChild<QTextBrowser *>()->toPlainText(), page);
            m_dialogs += &dialog;
            action(dialog);
        });
    }

    QList<QDialog *> m_dialogs;
};

const Operations shown = {"getArgs", "releaseRb 1"};

} // namespace

TEST_F(HtmlWindow, Opens640By480AndCloseOrTheWindowsCloseButtonEndsTheCallWithNil)
{
    const QString page = u"file:///c:/help/index.htm"_qs;
    expectPage(page, press(u"Close"_qs));
    EXPECT_EQ(call(showhtmlmodalwindow, {text(page)}), shown);
    expectPage(page, [](QDialog &dialog) { EXPECT_TRUE(dialog.close()); });
    EXPECT_EQ(call(showhtmlmodalwindow, {text(page)}), shown);
}

TEST_F(HtmlWindow, ASecondCallWithAnotherPageReusesTheSameWindowAndShowsTheNewPage)
{
    expectPage(u"first"_qs, press(u"Close"_qs));
    call(showhtmlmodalwindow, {text(u"first")});
    expectPage(u"second\\n"_qs, press(u"Close"_qs));
    EXPECT_EQ(call(showhtmlmodalwindow, {text(u"second\\n")}), shown);
    EXPECT_EQ(m_dialogs.value(0), m_dialogs.value(1));
}

TEST_F(HtmlWindow, WithoutAPageOpensNothing)
{
    EXPECT_EQ(call(showhtmlmodalwindow, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(showhtmlmodalwindow, {shortInteger(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(person().shown(), 0);
    EXPECT_TRUE(mainWindow().children().isEmpty());
}

TEST_F(HtmlWindow, PromptHandsTheTextToTheHost)
{
    EXPECT_EQ(call(wexoHtmlprompt, {text(u"<i>x</i>"), text(u"y")}), shown);
    EXPECT_EQ(prompts(), std::vector<std::string>{"<i>x</i> 0"});
}

TEST_F(HtmlWindow, PromptOf1DoesNothingAndReturnsNil)
{
    EXPECT_EQ(call(wexoHtmlprompt, {shortInteger(1)}), Operations{"getArgs"});
    EXPECT_EQ(call(wexoHtmlprompt, {}), Operations{"getArgs"});
    EXPECT_TRUE(prompts().empty());
}
