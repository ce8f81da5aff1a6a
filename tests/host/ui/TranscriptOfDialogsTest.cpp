#include "host/ui/HtmlDialog.h"
#include "tests/host/ui/DriverTest.h"

#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>

namespace {

using TranscriptOfDialogs = DriverTest;

QStringList members(const QJsonObject &event)
{
    return event.keys();
}

} // namespace

TEST_F(TranscriptOfDialogs, TellsWhatABoxShows)
{
    setAnswers(u"@press No"_qs);
    QMessageBox box(QMessageBox::Question, u"Title"_qs, u"<b>Text</b>"_qs, QMessageBox::Yes | QMessageBox::No);
    box.exec();
    const QJsonObject event = events().value(0);
    EXPECT_EQ(event[u"event"], u"dialog"_qs);
    EXPECT_EQ(event[u"class"], u"QMessageBox"_qs);
    EXPECT_EQ(event[u"title"], u"Title"_qs);
    EXPECT_EQ(event[u"text"], u"<b>Text</b>"_qs);
    EXPECT_EQ(event[u"icon"], u"question"_qs);
    EXPECT_EQ(event[u"buttons"], (QJsonArray{u"Yes"_qs, u"No"_qs}));
    EXPECT_GT(event[u"width"].toInt(), 50);
    EXPECT_GT(event[u"height"].toInt(), 30);
    EXPECT_EQ(event[u"answer"], u"@press No"_qs);
    EXPECT_EQ(members(event).size(), 9) << members(event).join(u' ').toStdString();
}

TEST_F(TranscriptOfDialogs, NamesEveryIcon)
{
    const std::pair<QMessageBox::Icon, QString> icons[] = {{QMessageBox::NoIcon, u"none"_qs},
                                                           {QMessageBox::Critical, u"critical"_qs},
                                                           {QMessageBox::Warning, u"warning"_qs},
                                                           {QMessageBox::Information, u"information"_qs}};
    for (const auto &[icon, name] : icons) {
        QMessageBox(icon, u"Title"_qs, u"Text"_qs, QMessageBox::Ok).exec();
        EXPECT_EQ(events().last()[u"icon"], name);
    }
}

TEST_F(TranscriptOfDialogs, TellsTheTextsOfAnEditorBeforeAndAfterTyping)
{
    setAnswers(u"@text first\n@text a\\nb\n@press OK"_qs);
    EditorDialog dialog;
    auto *label = new QLabel(u"&Note"_qs, &dialog);
    label->setObjectName(u"theLabel"_qs);
    dialog.resize(400, 350);
    dialog.exec();
    ASSERT_EQ(events().size(), 1);
    const QJsonObject event = events()[0];
    EXPECT_EQ(event[u"text"], u"old"_qs);
    EXPECT_EQ(event[u"typed"], u"a\nb"_qs);
    EXPECT_EQ(event[u"labels"], (QJsonObject{{u"theLabel"_qs, u"&Note"_qs}}));
    EXPECT_EQ(event[u"width"], 400);
    EXPECT_EQ(event[u"height"], 350);
    EXPECT_EQ(event[u"answer"], u"@press OK"_qs);
}

TEST_F(TranscriptOfDialogs, TellsAPageAsItWasGivenAndAsItIsShown)
{
    showHtmlDialog(nullptr, u"<h1>One</h1>two"_qs);
    EXPECT_EQ(events()[0][u"title"], u"Message"_qs);
    EXPECT_EQ(events()[0][u"text"], u"<h1>One</h1>two"_qs);
    EXPECT_EQ(events()[0][u"shown"], u"One\ntwo"_qs);
    EXPECT_EQ(events()[0][u"buttons"], QJsonArray{u"OK"_qs});
}

TEST_F(TranscriptOfDialogs, TellsWhereAFileDialogStandsAndWhatItOffers)
{
    QFileDialog dialog(nullptr, u"Save"_qs, path(u""_qs), u"DXF (*.dxf)"_qs);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(u"plan.dxf"_qs);
    dialog.exec();
    const QJsonObject event = events().value(0);
    EXPECT_EQ(event[u"class"], u"QFileDialog"_qs);
    EXPECT_EQ(event[u"text"], u"plan.dxf"_qs);
    EXPECT_EQ(QDir(event[u"directory"].toString()), QDir(path(u""_qs)));
    EXPECT_EQ(event[u"filters"], QJsonArray{u"DXF (*.dxf)"_qs});
    EXPECT_EQ(event[u"buttons"], (QJsonArray{u"Save"_qs, u"Cancel"_qs}));
}
