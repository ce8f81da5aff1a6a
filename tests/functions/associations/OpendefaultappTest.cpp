#include "functions/associations.h"

#include "tests/support/HandlerTest.h"

#include <QDesktopServices>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

namespace {

// Takes the desktop's place for URLs of files.
class Desktop final : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(u"file"_qs, this, "open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(u"file"_qs); }
    Q_INVOKABLE void open(const QUrl &url) { opened.append(url); }

    QList<QUrl> opened;
};

class Opendefaultapp : public HandlerTest
{
protected:
    int statusOf(const Arguments &arguments)
    {
        host().setArguments(arguments);
        const int status = wexoOpendefaultapp();
        EXPECT_EQ(host().operations(), Operations{"getArgs"}); // no message, no result, nothing released
        return status;
    }

    QTemporaryDir m_folder;
    Desktop m_desktop;
};

} // namespace

TEST_F(Opendefaultapp, OnAnExistingDocumentOpensItAndSetsNoResult)
{
    QFile file(m_folder.filePath(u"a b#ä.txt"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(call(wexoOpendefaultapp, {text(file.fileName())}), Operations{"getArgs"});
    EXPECT_EQ(m_desktop.opened, QList<QUrl>{QUrl::fromLocalFile(file.fileName())});
}

TEST_F(Opendefaultapp, OnAMissingFileMakesTheCallFailWithoutAMessage)
{
    EXPECT_EQ(statusOf({text(m_folder.filePath(u"none.txt"_qs))}), StatusError);
    EXPECT_TRUE(m_desktop.opened.isEmpty());
}

TEST_F(Opendefaultapp, OfTheEmptyTextMakesTheCallFailWithoutAMessage)
{
    EXPECT_EQ(statusOf({text(u"")}), StatusError);
    EXPECT_TRUE(m_desktop.opened.isEmpty());
}

TEST_F(Opendefaultapp, OfAPathOf32767CharactersMakesTheCallFailWithoutAMessage)
{
    for (const QString &path : {QString(32767, u'x'), m_folder.filePath(QString(32767, u'x')).left(32767)})
        EXPECT_EQ(statusOf({text(path)}), StatusError);
    EXPECT_TRUE(m_desktop.opened.isEmpty());
}

TEST_F(Opendefaultapp, OfAPathWithANulOpensWhatIsInFrontOfIt)
{
    QFile file(m_folder.filePath(u"a"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(statusOf({text(file.fileName() + QChar(u'\0') + u"b"_qs)}), StatusNormal);
    EXPECT_EQ(m_desktop.opened, QList<QUrl>{QUrl::fromLocalFile(file.fileName())});
}

TEST_F(Opendefaultapp, AMissingOrWrongArgumentMakesTheCallFailWithoutAMessage)
{
    EXPECT_EQ(statusOf({}), StatusError);
    EXPECT_EQ(statusOf({shortInteger(1)}), StatusError);
}

#include "OpendefaultappTest.moc"
