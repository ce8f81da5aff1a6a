#include "host/ui/TextBrowserView.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class TextBrowserViewTest : public testing::Test
{
protected:
    QString page(const QString &name, const QByteArray &html) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(html);
        return file.fileName();
    }

    QTextBrowser &browser() { return dynamic_cast<QTextBrowser &>(*m_view.widget()); }
    QString shown() { return browser().toPlainText(); }

    QTemporaryDir m_folder;
    TextBrowserView m_view;
};

} // namespace

TEST_F(TextBrowserViewTest, ShowsATextWithTags)
{
    m_view.openPage(u"<p><b>one</b></p><p>two"_qs);
    EXPECT_EQ(shown(), u"one\ntwo"_qs);
    EXPECT_EQ(givenPage(browser()), u"<p><b>one</b></p><p>two"_qs);
}

TEST_F(TextBrowserViewTest, ShowsAFileByPathAndAddress)
{
    const QString path = page(u"first.htm"_qs, "<h1>First</h1>");
    m_view.openPage(path);
    EXPECT_EQ(shown(), u"First"_qs);
    m_view.loadUrl(u"about:blank"_qs);
    EXPECT_EQ(shown(), QString());
    m_view.loadUrl(QUrl::fromLocalFile(path).toString());
    EXPECT_EQ(shown(), u"First"_qs);
}

TEST_F(TextBrowserViewTest, ShowsAFileAsItIsNow)
{
    for (const char *text : {"first", "second", "third"}) {
        m_view.openPage(page(u"page.htm"_qs, text));
        EXPECT_EQ(shown(), QLatin1String(text));
    }
}

TEST_F(TextBrowserViewTest, FollowsLinksToOtherLocalPages)
{
    page(u"second.htm"_qs, "<h1>Second</h1>");
    m_view.openPage(page(u"first.htm"_qs, "<a href='second.htm'>on</a>"));
    browser().show();
    QTextCursor link(browser().document());
    link.movePosition(QTextCursor::NextCharacter);
    QTest::mouseClick(browser().viewport(), Qt::LeftButton, {}, browser().cursorRect(link).center());
    EXPECT_EQ(shown(), u"Second"_qs);
    EXPECT_TRUE(browser().openLinks());
    EXPECT_TRUE(browser().openExternalLinks());
}

TEST_F(TextBrowserViewTest, SaysWhichFileIsMissing)
{
    m_view.openPage(u"file:///no/such/page.htm"_qs);
    EXPECT_EQ(shown(), u"There is no file /no/such/page.htm."_qs);
}

TEST_F(TextBrowserViewTest, ShowsAWebPageAsALink)
{
    m_view.openPage(u"https://example.org/"_qs);
    EXPECT_EQ(shown(), u"https://example.org/"_qs);
}

TEST_F(TextBrowserViewTest, OutlivesItsWidgetAndDeletesItElse)
{
    delete m_view.widget();
    EXPECT_EQ(m_view.widget(), nullptr);
    m_view.openPage(u"page"_qs);
    m_view.loadUrl(u"about:blank"_qs);
    QPointer<QWidget> widget;
    {
        TextBrowserView view;
        widget = view.widget();
    }
    EXPECT_TRUE(widget.isNull());
}
