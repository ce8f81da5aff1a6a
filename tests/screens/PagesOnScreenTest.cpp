#include "functions/filedialogs.h"
#include "functions/ui.h"
#include "host/sdk/ui/HostSdkUi.h"
#include "host/ui/HtmlDialog.h"
#include "host/ui/TextBrowserView.h"
#include "host/ui/gui/DesktopColors.h"
#include "tests/screens/Screen.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

class PagesOnScreen : public ScreenTest
{
protected:
    PagesOnScreen() { HostSdk::installWebViewMaker(makeTextBrowserView); }
    ~PagesOnScreen() override { HostSdk::installWebViewMaker(nullptr); }

    QString page(const QString &name, const QByteArray &html) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(html);
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PagesOnScreen, LinksLeadToOtherLocalPages)
{
    page(u"second.htm"_qs, "<h1>Second</h1><p>The end.");
    const QString first =
        page(u"first.htm"_qs, "<h1>Layers</h1><p>Two layers are frozen.</p>"
                              "<table border='1' cellpadding='4'><tr><th>Layer</th><th>Entities</th></tr>"
                              "<tr><td>Walls</td><td align='right'>812</td></tr>"
                              "<tr><td>Doors</td><td align='right'>46</td></tr></table>"
                              "<p><a href='second.htm'>The next page</a></p>");
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"page"_qs);
        auto *browser = dialog.findChild<QTextBrowser *>();
        typeKey(dialog, Qt::Key_Tab);
        browser->setFocus();
        typeKey(dialog, Qt::Key_Tab);
        typeKey(dialog, Qt::Key_Return);
        EXPECT_EQ(browser->toPlainText(), u"Second\nThe end."_qs);
        click(child<QPushButton>(dialog, "closeButton"));
    });
    EXPECT_EQ(call(showhtmlmodalwindow, {text(first)}), (Operations{"getArgs", "releaseRb 1"}));
}

TEST_F(PagesOnScreen, APageIsReadableInDarkColours)
{
    useColorScheme(ColorScheme::Dark);
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"page-dark"_qs);
        typeKey(dialog, Qt::Key_Escape);
    });
    call(showhtmlmodalwindow,
         {text(u"<h1>Layers</h1><p>Two layers are frozen.</p><p><a href='x.htm'>The next page</a></p>")});
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"file-dialog-dark"_qs);
        typeKey(dialog, Qt::Key_Escape);
    });
    call(acetUiPickdir, {});
    useColorScheme(ColorScheme::NoPreference);
}

TEST_F(PagesOnScreen, TheWindowMayBeEnlargedAndThePageGrowsWithIt)
{
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        dialog.resize(900, 700);
        QTest::qWait(200);
        EXPECT_EQ(dialog.size(), QSize(900, 700));
        EXPECT_GT(dialog.findChild<QTextBrowser *>()->height(), 600);
        dialog.resize(100, 100);
        QTest::qWait(200);
        EXPECT_EQ(dialog.size(), QSize(640, 480));
        typeKey(dialog, Qt::Key_Escape);
    });
    call(showhtmlmodalwindow, {text(u"<h1>Page</h1>")});
}

TEST_F(PagesOnScreen, ThePromptOfTheHostIsReadable)
{
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"html-prompt"_qs);
        typeKey(dialog, Qt::Key_Return);
    });
    showHtmlDialog(&mainWindow(), u"<p>The drawing was <b>saved</b> with <i>12</i> changes."_qs);
}

TEST_F(PagesOnScreen, AFileIsSavedUnderTheNameThatIsTyped)
{
    page(u"first.txt"_qs, "");
    page(u"second.txt"_qs, "");
    person().expect([](QDialog &dialog) {
        waitUntilReady(dialog);
        takePicture(dialog, u"file-dialog"_qs);
        child<QLineEdit>(dialog, "fileNameEdit").setFocus();
        typeText(dialog, u"third.txt"_qs);
        typeKey(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(call(acetFileWritedialog, {text(u"Save the report"), text(m_folder.path()), text(u"Texts (*.txt)"),
                                         text(u""), shortInteger(0)}),
              (Operations{"getArgs", operation("retWStr", m_folder.filePath(u"third.txt"_qs)), "releaseRb 5"}));
}
