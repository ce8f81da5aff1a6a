// Opening and saving the drawing from the window.

#include "host/ui/gui/DrawingFiles.h"
#include "tests/host/ui/gui/GuiTest.h"
#include "tests/support/DialogWatcher.h"

#include <QMessageBox>

using testing::EndsWith;
using testing::HasSubstr;

namespace {

const QString change = QStringLiteral("(entmake '((0 . \"POINT\") (10 1.0 2.0 0.0)))");

class DrawingFilesTest : public GuiTest
{
protected:
    // A drawing with that many points.
    QString drawing(const QString &name, int points)
    {
        for (int i = 0; i < points; ++i)
            type(change);
        document.drawing().setPath(m_folder.filePath(name));
        EXPECT_TRUE(files.save());
        return m_folder.filePath(name);
    }
    void expectQuestion(const QString &button)
    {
        person.expect([=](QDialog &dialog) {
            EXPECT_THAT(dynamic_cast<QMessageBox &>(dialog).text().toStdString(), HasSubstr("Save the changes to"));
            press(button)(dialog);
        });
    }
    MainWindow &window() { return interface.window(); }

    QTemporaryDir m_folder;
    DrawingFiles files{interface.window(), runner, document};
    DialogWatcher person;
};

} // namespace

TEST_F(DrawingFilesTest, ADrawingIsReadWhenItIsOpenedAndNamedInTheTitle)
{
    const QString one = drawing(QStringLiteral("one.dxf"), 1);
    const QString three = drawing(QStringLiteral("three.dxf"), 2);
    window().openFile(one);
    EXPECT_EQ(entityCount(), "1\n");
    EXPECT_EQ(window().windowTitle(), QStringLiteral("one.dxf[*] – lisphost"));
    window().openFile(three);
    EXPECT_EQ(entityCount(), "3\n");
    EXPECT_FALSE(window().isWindowModified());
}

TEST_F(DrawingFilesTest, AChangeMarksTheTitleUntilItIsSaved)
{
    drawing(QStringLiteral("one.dxf"), 1);
    type(change);
    EXPECT_TRUE(window().isWindowModified());
    type(QStringLiteral("(command \"_.qsave\")"));
    EXPECT_FALSE(window().isWindowModified());
    type(change);
    EXPECT_TRUE(window().isWindowModified());
    Q_EMIT window().saveChosen();
    EXPECT_FALSE(window().isWindowModified());
    type(QStringLiteral("u"));
    EXPECT_TRUE(window().isWindowModified()) << "what was undone is not in the file";
}

TEST_F(DrawingFilesTest, BeforeChangesGetLostThePersonIsAsked)
{
    const QString one = drawing(QStringLiteral("one.dxf"), 1);
    type(change);
    expectQuestion(QStringLiteral("Cancel"));
    window().openFile(one);
    EXPECT_EQ(entityCount(), "2\n");
    expectQuestion(QStringLiteral("Cancel"));
    EXPECT_FALSE(window().close());
    expectQuestion(QStringLiteral("Discard"));
    window().openFile(one);
    EXPECT_EQ(entityCount(), "1\n");
    type(change);
    expectQuestion(QStringLiteral("Save"));
    EXPECT_TRUE(window().close());
    EXPECT_EQ(person.shown(), 4);
    window().openFile(one);
    EXPECT_EQ(entityCount(), "2\n");
}

TEST_F(DrawingFilesTest, SaveAsGivesTheDrawingItsNameAndAddsTheEnding)
{
    type(change);
    person.expect([this](QDialog &dialog) {
        child<QLineEdit>(dialog, "fileNameEdit").setText(m_folder.filePath(QStringLiteral("new")));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    Q_EMIT window().saveChosen();
    EXPECT_EQ(document.drawing().path(), m_folder.filePath(QStringLiteral("new.dxf")));
    EXPECT_TRUE(QFile::exists(m_folder.filePath(QStringLiteral("new.dxf"))));
    type(QStringLiteral("(getvar \"DWGNAME\")"));
    EXPECT_THAT(output(), EndsWith("\n\"new.dxf\"\n"));
}

TEST_F(DrawingFilesTest, ADrawingThatCannotBeReadLeavesTheOneThatIsOpen)
{
    drawing(QStringLiteral("one.dxf"), 1);
    window().openFile(m_folder.filePath(QStringLiteral("none.dxf")));
    EXPECT_THAT(output(), HasSubstr("none.dxf"));
    EXPECT_EQ(entityCount(), "1\n");
    EXPECT_EQ(window().windowTitle(), QStringLiteral("one.dxf[*] – lisphost"));
}

TEST_F(DrawingFilesTest, ADrawingThatCannotBeSavedIsAMessageAndStaysChanged)
{
    type(change);
    document.drawing().setPath(m_folder.filePath(QStringLiteral("none/one.dxf")));
    EXPECT_FALSE(files.save());
    EXPECT_THAT(output(), HasSubstr("none/one.dxf"));
    EXPECT_TRUE(window().isWindowModified());
}
