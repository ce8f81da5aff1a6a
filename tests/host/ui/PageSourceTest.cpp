#include "host/ui/PageSource.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(PageSource, IsAFileWhenItIsItsAddressOrPath)
{
    const PageSource address = PageSource::of(u"file:///c:/help/index.htm#part"_qs);
    EXPECT_EQ(address.kind, PageSource::Kind::File);
    EXPECT_EQ(address.url, QUrl(u"file:///c:/help/index.htm#part"_qs));
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"a page.htm"_qs));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    const PageSource path = PageSource::of(file.fileName());
    EXPECT_EQ(path.kind, PageSource::Kind::File);
    EXPECT_EQ(path.url.toLocalFile(), file.fileName());
}

TEST(PageSource, OnTheWebIsShownAsALinkToIt)
{
    const PageSource source = PageSource::of(u" https://example.org/a?b=1&c=2 "_qs);
    EXPECT_EQ(source.kind, PageSource::Kind::Web);
    EXPECT_EQ(source.url, QUrl(u"https://example.org/a?b=1&c=2"_qs));
    EXPECT_EQ(source.html,
              u"<p><a href=\"https://example.org/a?b=1&amp;c=2\">https://example.org/a?b=1&amp;c=2</a></p>"_qs);
}

TEST(PageSource, IsElseATextWithOrWithoutTags)
{
    EXPECT_EQ(PageSource::of(u"<h1>a</h1>"_qs).kind, PageSource::Kind::Html);
    EXPECT_EQ(PageSource::of(u"<h1>a</h1>"_qs).html, u"<h1>a</h1>"_qs);
    EXPECT_EQ(PageSource::of(u"1 < 2\nand more"_qs).html, u"<p>1 &lt; 2<br>\nand more</p>"_qs);
    EXPECT_EQ(PageSource::of(u"/no/such/file.htm"_qs).kind, PageSource::Kind::Html);
    EXPECT_EQ(PageSource::of(QString()).kind, PageSource::Kind::Html);
}
