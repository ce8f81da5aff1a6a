#include "tests/functions/files/FilesTest.h"

namespace {

class UnusualPaths : public FilesTest, public testing::WithParamInterface<const char16_t *>
{
};

class EndlessPath : public FilesTest
{
protected:
    const Argument m_path = text(QString(4096, u'x'));
};

} // namespace

TEST_P(UnusualPaths, ServeEveryFunctionOfTheFamily)
{
    const QString name = QStringView(GetParam()).toString();
    const QString folder = path(name);
    const QString file = folder + u'/' + name;
    EXPECT_EQ(call(acetFileMkdir, {text(folder)}).at(1), "retT");
    EXPECT_EQ(call(acetFileAttr, {text(folder)}).at(1), "retInt 16");
    newFile(u"plain"_qs, "content");
    EXPECT_EQ(call(acetFileMove, {text(path(u"plain"_qs)), text(file)}).at(1), "retT");
    EXPECT_EQ(content(file), "content");
    EXPECT_EQ(call(acetFileAttr, {text(file), shortInteger(33)}).at(1), "retInt 33");
    EXPECT_EQ(call(acetFileAttr, {text(file)}).at(1), "retInt 33");
    EXPECT_EQ(call(acetFileRemove, {text(file), truth()}).at(1), "retInt 1");
    EXPECT_EQ(call(acetFileChdir, {text(folder)}).at(1), operation("retWStr", QDir::toNativeSeparators(folder)));
    EXPECT_EQ(call(acetFileCwd, {}).at(0), operation("retWStr", QDir::toNativeSeparators(folder)));
    EXPECT_EQ(call(acetFileChdir, {text(path(u"."_qs))}).at(1).substr(0, 7),
              "retWStr"); // Windows keeps the current one
    EXPECT_EQ(call(acetFileRmdir, {text(folder)}).at(1), "retT");
    EXPECT_FALSE(QFile::exists(folder));
}

INSTANTIATE_TEST_SUITE_P(Names, UnusualPaths,
                         testing::Values(u" leading blank", u"'quoted' twice", u"Zürich Ω 図面", u"\U0001F4D0",
                                         u"100%s%d", u"-dash", u"semi;colon,comma"));

#ifndef _WIN32
INSTANTIATE_TEST_SUITE_P(NamesThatWindowsForbids, UnusualPaths,
                         testing::Values(u"trailing blank ", u"\"quoted\"", u"two\nlines", u"back\\slash", u"a:b"));
#endif

TEST_F(EndlessPath, OfFourThousandCharactersIsAFailureLikeAnyOther)
{
    EXPECT_EQ(call(acetFileAttr, {m_path}).at(2), "retNil");
    EXPECT_EQ(call(acetFileAttr, {m_path, shortInteger(1)}).at(1), "retNil");
    EXPECT_EQ(call(acetFileChdir, {m_path}).at(2), "retNil");
    EXPECT_EQ(call(acetFileMkdir, {m_path}).at(1), "retNil");
    EXPECT_EQ(call(acetFileMove, {m_path, m_path}).at(1), "retNil");
    EXPECT_EQ(call(acetFileRemove, {m_path}).at(1), "retInt 0");
    EXPECT_EQ(call(acetFileRmdir, {m_path}).at(1), "retT"); // it does not exist
}
