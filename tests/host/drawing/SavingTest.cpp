#include "host/drawing/DrawingWriter.h"

#include "tests/host/drawing/SampleDrawing.h"
#include "tests/storage/StorageTest.h"

namespace drawing {
namespace {

class Saving : public StorageTest
{
protected:
    static QByteArray sample() { return {SampleText.data(), static_cast<qsizetype>(SampleText.size())}; }
    bool save(const QString &name, Backup backup) { return saveDrawing(*m_database, path(name), backup, m_failure); }

    const std::unique_ptr<Database> m_database = databaseOf(SampleText);
};

TEST_F(Saving, WithoutABackupTheDrawingIsAllThereIs)
{
    write(u"plan.dxf"_qs, "old");
    ASSERT_TRUE(save(u"plan.dxf"_qs, Backup::None));
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
    EXPECT_EQ(contentOf(u"plan.dxf"_qs), sample());
}

TEST_F(Saving, ABackupIsWhatWasThereBefore)
{
    write(u"plan.v2.dxf"_qs, "old");
    write(u"plan.v2.bak"_qs, "older");
    ASSERT_TRUE(save(u"plan.v2.dxf"_qs, Backup::Keep));
    EXPECT_EQ(names(), QStringList({u"plan.v2.bak"_qs, u"plan.v2.dxf"_qs}));
    EXPECT_EQ(contentOf(u"plan.v2.bak"_qs), "old");
    EXPECT_EQ(contentOf(u"plan.v2.dxf"_qs), sample());
}

TEST_F(Saving, TheFirstSaveHasNothingToBackUp)
{
    ASSERT_TRUE(save(u"plan.dxf"_qs, Backup::Keep));
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
}

TEST_F(Saving, ALargeBackupIsCopiedWhole)
{
    QByteArray old(3'000'001, 'x'); // several pieces, the last one short
    old[2'500'000] = 'y';
    write(u"plan.dxf"_qs, old);
    ASSERT_TRUE(save(u"plan.dxf"_qs, Backup::Keep));
    EXPECT_EQ(contentOf(u"plan.bak"_qs), old);
}

TEST_F(Saving, ABackupThatCannotBeKeptLeavesEverythingAsItIs)
{
    write(u"plan.dxf"_qs, "old");
    ASSERT_TRUE(QDir().mkdir(path(u"plan.bak"_qs)));
    EXPECT_FALSE(save(u"plan.dxf"_qs, Backup::Keep));
    EXPECT_TRUE(m_failure.startsWith(path(u"plan.bak"_qs) + u": "_qs)) << m_failure.toStdString();
    EXPECT_EQ(names(), QStringList({u"plan.dxf"_qs}));
    EXPECT_EQ(contentOf(u"plan.dxf"_qs), "old");
}

TEST_F(Saving, AFolderThatIsNotThereIsToldAndNothingIsMade)
{
    EXPECT_FALSE(save(u"none/plan.dxf"_qs, Backup::Keep));
    EXPECT_TRUE(m_failure.startsWith(path(u"none/plan.dxf"_qs) + u": "_qs)) << m_failure.toStdString();
    EXPECT_EQ(names(), QStringList());
}

} // namespace
} // namespace drawing
