#include "host/ui/FileChooser.h"
#include "tests/host/ui/DriverTest.h"

namespace {

class FileChooserTest : public DriverTest
{
protected:
    std::optional<QString> choose(int flags, const QString &extension = u"dxf"_qs)
    {
        return chooseFileInDialog(nullptr,
                                  FileRequest::fromGetfiled(u"Title"_qs, path(u""_qs) + u'/', extension, flags));
    }

    QString newFile(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        return file.fileName();
    }
};

} // namespace

TEST_F(FileChooserTest, GivesTheFileThatWasChosen)
{
    const QString there = newFile(u"plan.dxf"_qs);
    setAnswers(u"@file plan.dxf"_qs);
    EXPECT_EQ(choose(0), there);
    EXPECT_EQ(events()[0][u"title"], u"Title"_qs);
    EXPECT_EQ(events()[0][u"filters"], QJsonArray{u"DXF (*.dxf)"_qs});
}

TEST_F(FileChooserTest, GivesNothingWhenTheUserCancels)
{
    setAnswers(u"@esc"_qs);
    EXPECT_EQ(choose(0), std::nullopt);
}

TEST_F(FileChooserTest, AddsTheExtensionToANewNameThatHasNone)
{
    setAnswers(u"@file fresh\n@file fresh.txt\n@file fresh"_qs);
    EXPECT_EQ(choose(1), path(u"fresh.dxf"_qs));
    EXPECT_EQ(choose(1), path(u"fresh.txt"_qs));
    EXPECT_EQ(choose(1 | 4), path(u"fresh"_qs));
}

TEST_F(FileChooserTest, AsksBeforeItOverwritesUnlessToldNotTo)
{
    const QString there = newFile(u"plan.dxf"_qs);
    setAnswers(u"@file plan.dxf\n@press Yes\n@file plan.dxf"_qs);
    EXPECT_EQ(choose(1), there);
    EXPECT_EQ(choose(1 | 32), there);
    EXPECT_EQ(events().size(), 3);
}

TEST_F(FileChooserTest, OffersTheDefaultName)
{
    chooseFileInDialog(nullptr, FileRequest::fromGetfiled(u"Title"_qs, path(u"plan.dxf"_qs), u"dxf"_qs, 1));
    EXPECT_EQ(events()[0][u"text"], u"plan.dxf"_qs);
    EXPECT_EQ(QDir(events()[0][u"directory"].toString()), QDir(path(u""_qs)));
}

TEST_F(FileChooserTest, BeginsInTheCurrentFolderWithoutADefault)
{
    chooseFileInDialog(nullptr, FileRequest::fromGetfiled(u"Title"_qs, {}, u"dxf"_qs, 0));
    EXPECT_EQ(events()[0][u"directory"], QDir::currentPath());
}
