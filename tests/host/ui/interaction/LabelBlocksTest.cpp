// An interactive program gives the same drawing by clicks in the window and by an answers file without one.

#include "tests/host/ui/interaction/LabelBlocksTest.h"

#include "host/drawing/DrawingWriter.h"

#include <QFile>
#include <QProcess>

using testing::HasSubstr;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

} // namespace

TEST_F(LabelBlocksTest, ClicksInTheWindowAndAnAnswersFileGiveTheSameDrawing)
{
    const QTemporaryDir folder;
    const QString headless = folder.filePath(QStringLiteral("headless.dxf"));
    const QStringList arguments = {
        QStringLiteral("run"),       example("plan.lsp"),           example("label-blocks.lsp"), example("run.lsp"),
        QStringLiteral("--answers"), example("two-blocks.answers"), QStringLiteral("--save"),    headless};
    ASSERT_EQ(QProcess::execute(QStringLiteral(LISPHOST_FILE), arguments), 0);

    thenDo({[this] { click(22, 50); },
            [this] {
                move(38, 50);
                move(36, 56);
                click(30, 60);
            },
            [this] { click(34, 42); }, [this] { click(50, 0); }, [this] { click(73, 20); }, [this] { type("Keep"); },
            [this] { click(74, 14); }, [this] { rightClick(); }});
    type("label-blocks");
    EXPECT_THAT(output(), HasSubstr("DESK: turned by 90.0 degrees, https://catalogue.example/desk/1"));

    const QString clicked = folder.filePath(QStringLiteral("clicked.dxf"));
    QString failure;
    ASSERT_TRUE(drawing::saveDrawing(document.drawing().database(), clicked, drawing::Backup::Keep, failure));
    EXPECT_THAT(contentOf(headless).toStdString(), HasSubstr("CHAIR-2"));
    EXPECT_EQ(contentOf(clicked), contentOf(headless));
}
