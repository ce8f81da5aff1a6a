#include "host/interpreter/files/FileNames.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char16_t *name, *directory, *base;
    std::optional<std::u16string> extension;
};

class FileNames : public testing::TestWithParam<Row>
{
};

TEST_P(FileNames, areTakenApart)
{
    EXPECT_EQ(lisp::fileNameDirectory(GetParam().name), GetParam().directory);
    EXPECT_EQ(lisp::fileNameBase(GetParam().name), GetParam().base);
    EXPECT_EQ(lisp::fileNameExtension(GetParam().name), GetParam().extension);
}

const Row rows[] = {
    {u"c:\\acadwin\\acad.exe", u"c:\\acadwin", u"acad", u".exe"},
    {u"c:\\acadwin", u"c:\\", u"acadwin", std::nullopt},
    {u"/foo/bar.txt", u"/foo", u"bar", u".txt"},
    {u"/foo/bar/", u"/foo/bar", u"", std::nullopt},
    {u"a/b\\c.d", u"a/b", u"c", u".d"},
    {u"template.txt", u"", u"template", u".txt"},
    {u"archive.tar.gz", u"", u"archive.tar", u".gz"},
    {u"/top", u"/", u"top", std::nullopt},
    {u"c:name.lsp", u"c:", u"name", u".lsp"},
    {u"c:/name", u"c:/", u"name", std::nullopt},
    {u"folder.d/name", u"folder.d", u"name", std::nullopt},
    {u"name.", u"", u"name", u"."},
    {u".profile", u"", u"", u".profile"},
    {u"a/..", u"a", u"..", std::nullopt},
    {u".", u"", u".", std::nullopt},
    {u"", u"", u"", std::nullopt},
    {u"/", u"/", u"", std::nullopt},
    {u"M\u00E4rz.dxf", u"", u"M\u00E4rz", u".dxf"},
};

INSTANTIATE_TEST_SUITE_P(rows, FileNames, testing::ValuesIn(rows));

TEST(FilePath, hasOneKindOfSeparator)
{
    EXPECT_EQ(lisp::filePath(u"a\\b/c"), QStringLiteral("a/b/c"));
}

} // namespace
