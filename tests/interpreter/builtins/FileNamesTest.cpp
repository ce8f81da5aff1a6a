#include "tests/interpreter/core/EvaluateText.h"
#include "tests/interpreter/files/TemporaryFolder.h"

TEST(FileNameBuiltins, takeNamesApart)
{
    expectAll({
        {"(vl-filename-base \"c:\\\\acadwin\\\\acad.exe\")", "\"acad\""},
        {"(vl-filename-base \"/foo/bar\")", "\"bar\""},
        {"(vl-filename-directory \"c:\\\\acadwin\\\\template.txt\")", "\"c:\\\\acadwin\""},
        {"(vl-filename-directory \"template.txt\")", "\"\""},
        {"(vl-filename-extension \"c:\\\\acadwin\\\\output.txt\")", "\".txt\""},
        {"(vl-filename-extension \"c:\\\\acadwin\\\\output\")", "nil"},
        {"(vl-filename-base nil)", "error: bad argument type: stringp nil"},
        {"(vl-filename-directory 1)", "error: bad argument type: stringp 1"},
        {"(vl-filename-extension 1)", "error: bad argument type: stringp 1"},
        {"(vl-filename-base)", "error: too few arguments"},
    });
}

// Each program runs in a machine of its own; DIR is the test's folder.
class FileSystemBuiltins : public testing::Test
{
protected:
    FileSystemBuiltins()
    {
        m_folder.make(QStringLiteral("a.txt"), "12345");
        m_folder.make(QStringLiteral("b.dxf"), "");
    }
    void expectAllHere(const std::vector<Example> &examples)
    {
        const std::string folder = "(setq dir \"" + m_folder.path().toStdString() + "/\") ";
        for (const Example &example : examples)
            EXPECT_EQ(evaluateText(folder + example.source), example.expected) << example.source;
    }
    TemporaryFolder m_folder;
};

TEST_F(FileSystemBuiltins, copyRenameAndDelete)
{
    expectAllHere({
        {"(vl-file-copy (strcat dir \"a.txt\") (strcat dir \"c.txt\"))", "5"},
        {"(vl-file-copy (strcat dir \"a.txt\") (strcat dir \"c.txt\"))", "nil"},
        {"(vl-file-copy (strcat dir \"a.txt\") (strcat dir \"c.txt\") T)", "5"},
        {"(vl-file-size (strcat dir \"c.txt\"))", "10"},
        {"(vl-file-copy (strcat dir \"b.dxf\") (strcat dir \"empty\"))", "0"},
        {"(vl-file-copy (strcat dir \"missing\") (strcat dir \"d\"))", "nil"},
        {"(vl-file-rename (strcat dir \"c.txt\") (strcat dir \"d.txt\"))", "T"},
        {"(vl-file-rename (strcat dir \"d.txt\") (strcat dir \"a.txt\"))", "nil"},
        {"(list (vl-file-delete (strcat dir \"d.txt\")) (vl-file-delete (strcat dir \"d.txt\")))", "(T nil)"},
        {"(vl-file-delete dir)", "nil"},
        {"(vl-file-copy \"a\" nil)", "error: bad argument type: stringp nil"},
        {"(vl-file-rename \"a\")", "error: too few arguments"},
        {"(vl-file-delete 1)", "error: bad argument type: stringp 1"},
    });
}

TEST_F(FileSystemBuiltins, sizeTimeAndFolders)
{
    expectAllHere({
        {"(list (vl-file-size (strcat dir \"a.txt\")) (vl-file-size dir) (vl-file-size (strcat dir \"none\")))",
         "(5 0 nil)"},
        {"(vl-file-systime (strcat dir \"none\"))", "nil"},
        {"(list (vl-file-directory-p dir) (vl-file-directory-p (strcat dir \"a.txt\")) (vl-file-directory-p \"\"))",
         "(T nil nil)"},
        {"(list (vl-mkdir (strcat dir \"sub\")) (vl-mkdir (strcat dir \"sub\")) (vl-mkdir (strcat dir \"x/y\")))",
         "(T nil nil)"},
        {"(vl-file-directory-p (strcat (vl-string-translate \"/\" \"\\\\\" dir) \"sub\"))", "T"},
        {"(vl-file-size nil)", "error: bad argument type: stringp nil"},
    });
    QFile file(m_folder.path(QStringLiteral("a.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime sunday(QDate(2026, 11, 22), QTime(23, 5, 9));
    ASSERT_TRUE(file.setFileTime(sunday, QFileDevice::FileModificationTime));
    expectAllHere({{"(vl-file-systime (strcat dir \"a.txt\"))", "(2026 11 0 22 23 5 9)"}});
}

TEST_F(FileSystemBuiltins, directoryFiles)
{
    expectAllHere({
        {"(vl-directory-files dir \"*.txt\" 1)", "(\"a.txt\")"},
        {"(vl-directory-files dir nil 1)", "(\"a.txt\" \"b.dxf\")"},
        {"(vl-directory-files dir)", "(\".\" \"..\" \"a.txt\" \"b.dxf\")"},
        {"(vl-directory-files dir \"*.*\" -1)", "(\".\" \"..\")"},
        {"(vl-directory-files dir \"*.none\")", "nil"},
        {"(vl-directory-files (strcat dir \"missing\"))", "nil"},
        {"(equal (vl-directory-files) (vl-directory-files \".\" nil 0))", "T"},
        {"(vl-directory-files dir nil 2)", "error: bad argument value: kind of directory entries 2"},
        {"(vl-directory-files dir nil \"x\")", "error: bad argument type: fixnump: \"x\""},
        {"(vl-directory-files 1)", "error: bad argument type: stringp 1"},
    });
}

TEST_F(FileSystemBuiltins, temporaryNames)
{
    expectAllHere({
        {"(wcmatch (vl-string-translate \"\\\\\" \"/\" (vl-filename-mktemp \"report.txt\" dir))"
         " (strcat dir \"repor???.txt\"))",
         "T"},
        {"(= (vl-filename-mktemp \"a\" dir) (vl-filename-mktemp \"a\" dir))", "nil"},
        {"(vl-filename-mktemp \"a\" (strcat dir \"missing\"))", "nil"},
        {"(vl-filename-extension (vl-filename-mktemp \"a.b\" dir \".c\"))", "\".c\""},
        {"(vl-filename-mktemp 1)", "error: bad argument type: stringp 1"},
    });
}
