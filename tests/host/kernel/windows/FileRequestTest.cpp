#include "host/kernel/windows/FileRequest.h"

#include <gtest/gtest.h>

namespace {

FileRequest request(const QString &defaultName, const QString &extension, int flags = 0)
{
    return FileRequest::fromGetfiled(QStringLiteral("Title"), defaultName, extension, flags);
}

QStringList filters(const QString &extension, int flags = 0)
{
    return request({}, extension, flags).nameFilters;
}

} // namespace

TEST(FileRequest, AsksForAFileThatIsThereUnlessTheFlag1IsSet)
{
    EXPECT_EQ(request({}, {}).mode, FileRequest::Mode::Open);
    EXPECT_EQ(request({}, {}, 1).mode, FileRequest::Mode::Save);
    EXPECT_EQ(request({}, {}, 1 | 8 | 64).mode, FileRequest::Mode::Save);
    EXPECT_EQ(request({}, {}).title, u"Title"_qs);
}

TEST(FileRequest, AsksBeforeItOverwritesUnlessTheFlag32IsSet)
{
    EXPECT_EQ(request({}, {}, 1).overwriting, FileRequest::Overwriting::Confirmed);
    EXPECT_EQ(request({}, {}, 33).overwriting, FileRequest::Overwriting::Silent);
}

TEST(FileRequest, TakesTheDefaultApart)
{
    struct Row
    {
        QString given;
        int flags;
        QString folder;
        QString fileName;
    };
    for (const Row &row :
         {Row{{}, 0, {}, {}}, Row{u"plan.dxf"_qs, 0, {}, u"plan.dxf"_qs},
          Row{u"/a/b/plan.dxf"_qs, 0, u"/a/b"_qs, u"plan.dxf"_qs}, Row{u"/a/b/"_qs, 0, u"/a/b/"_qs, {}},
          Row{u"b\\"_qs, 0, u"b\\"_qs, {}}, Row{u"/a/b"_qs, 16, u"/a/b"_qs, {}}}) {
        const FileRequest made = request(row.given, {}, row.flags);
        EXPECT_EQ(made.folder, row.folder) << row.given.toStdString();
        EXPECT_EQ(made.fileName, row.fileName) << row.given.toStdString();
    }
}

TEST(FileRequest, MakesAFilterOfExtensions)
{
    EXPECT_EQ(filters(u"dxf"_qs), QStringList{u"DXF (*.dxf)"_qs});
    EXPECT_EQ(filters(u"dwg; dxf"_qs), QStringList{u"DWG, DXF (*.dwg *.dxf)"_qs});
    EXPECT_EQ(filters(u"*.dxf"_qs), QStringList{u"DXF (*.dxf)"_qs});
    EXPECT_EQ(filters({}), QStringList{u"All files (*)"_qs});
    EXPECT_EQ(filters(u"*"_qs), QStringList{u"All files (*)"_qs});
}

TEST(FileRequest, AllowsAnyOtherExtensionWithTheFlag4)
{
    EXPECT_EQ(filters(u"dxf"_qs, 4), (QStringList{u"DXF (*.dxf)"_qs, u"All files (*)"_qs}));
}

TEST(FileRequest, TakesWholeFilters)
{
    EXPECT_EQ(filters(u"Drawings (*.dwg *.dxf);;All (*)"_qs),
              (QStringList{u"Drawings (*.dwg *.dxf)"_qs, u"All (*)"_qs}));
    EXPECT_EQ(filters(u"Drawings (*.dwg;*.dxf)|*.dwg;*.dxf|All|*.*"_qs),
              (QStringList{u"Drawings (*.dwg *.dxf)"_qs, u"All (*.*)"_qs}));
}

TEST(FileRequest, AddsTheFirstExtensionToANameUnlessAnyIsAllowed)
{
    EXPECT_EQ(request({}, u"dwg;dxf"_qs, 1).extension, u"dwg"_qs);
    EXPECT_EQ(request({}, u"dxf"_qs, 5).extension, QString());
    EXPECT_EQ(request({}, {}, 1).extension, QString());
    EXPECT_EQ(request({}, u"Drawings (*.dxf)"_qs, 1).extension, QString());
}
