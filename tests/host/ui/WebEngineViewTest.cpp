#include "host/ui/WebEngineView.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class WebEngineViewTest : public testing::Test
{
protected:
    QWebEngineView &browser() { return dynamic_cast<QWebEngineView &>(*m_view.widget()); }

    // After the page has been loaded.
    QString shownBy(const std::function<void()> &open)
    {
        QSignalSpy loaded(&browser(), &QWebEngineView::loadFinished);
        open();
        EXPECT_TRUE(loaded.wait(30'000));
        QString shown;
        QEventLoop loop;
        browser().page()->toPlainText([&](const QString &text) {
            shown = text;
            loop.quit();
        });
        loop.exec();
        return shown;
    }

    WebEngineView m_view;
};

} // namespace

TEST_F(WebEngineViewTest, ShowsATextWithTagsAndAnEmptyPage)
{
    EXPECT_EQ(shownBy([this] { m_view.openPage(u"<p><b>one</b> two"_qs); }), u"one two"_qs);
    EXPECT_EQ(shownBy([this] { m_view.loadUrl(u"about:blank"_qs); }), QString());
}

TEST_F(WebEngineViewTest, ShowsAFileAsItIsNow)
{
    const QTemporaryDir folder;
    for (const char *text : {"first", "second"}) {
        QFile file(folder.filePath(u"page.htm"_qs));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
        file.close();
        EXPECT_EQ(shownBy([&] { m_view.openPage(file.fileName()); }), QLatin1String(text));
    }
}

TEST_F(WebEngineViewTest, OutlivesItsWidget)
{
    delete m_view.widget();
    EXPECT_EQ(m_view.widget(), nullptr);
    m_view.openPage(u"page"_qs);
}
