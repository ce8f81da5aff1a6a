// A file that takes long to read, which is shown and can be given up.

#include "tests/host/ui/gui/LargeDrawing.h"
#include "host/ui/gui/DrawingFiles.h"
#include "tests/host/ui/gui/GuiTest.h"

#include <QProgressBar>

using testing::HasSubstr;

namespace {

class LargeDrawing : public GuiTest
{
protected:
    LargeDrawing()
    {
        writeLines(m_path, LargeCount);
        type(QStringLiteral("(entmake '((0 . \"POINT\") (10 1.0 2.0 0.0)))"));
        type(QStringLiteral("(setq mine (entlast))"));
        document.drawing().setPath(m_folder.filePath(QStringLiteral("mine.dxf")));
        EXPECT_TRUE(files.save());
    }
    MainWindow &window() { return interface.window(); }
    void pressEscape() { QTest::keyClick(&interface.window(), Qt::Key_Escape); }
    // When so much of a file has been read that this is shown.
    void whileItIsRead(const std::function<void()> &action)
    {
        auto *watch = new QTimer(&interface);
        QObject::connect(watch, &QTimer::timeout, watch, [this, watch, action] {
            if (!bar->isVisible())
                return;
            watch->stop();
            watch->deleteLater();
            action();
        });
        watch->start(1);
    }
    // Types a move of all there is; when the command has begun to look for it, the person acts. False: that was not
    // enough to end it.
    bool moveAll(const std::function<void()> &action)
    {
        bool isWaiting = false;
        QTimer rescue;
        QObject::connect(&rescue, &QTimer::timeout, &interface, [this, &isWaiting] {
            isWaiting = true;
            pressEscape();
        });
        rescue.start(100'000);
        const QStringList answers = {QStringLiteral("c"), QStringLiteral("-1,-1"),
                                     QStringLiteral("1001,%1").arg(LargeCount)};
        later([this, answers, action] { answer(answers, action); });
        type(QStringLiteral("move"));
        return !isWaiting;
    }
    void answer(const QStringList &answers, const std::function<void()> &action)
    {
        if (answers.size() > 1)
            later([this, answers, action] { answer(answers.sliced(1), action); });
        else
            later(action);
        type(answers.first());
    }
    bool isFormerThere() { return document.drawing().path().endsWith(QStringLiteral("mine.dxf")); }
    void expectReady()
    {
        EXPECT_FALSE(interface.isRunning());
        EXPECT_FALSE(bar->isVisible());
        EXPECT_FALSE(input->isReadOnly());
        EXPECT_EQ(prompt(), "Command: ");
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("large.dxf"));
    DrawingFiles files{interface.window(), runner, document};
    QProgressBar *bar = interface.window().findChild<QProgressBar *>(QStringLiteral("progressBar"));
};

} // namespace

TEST_F(LargeDrawing, ItsProgressIsShownAndNothingElseCanBeDoneMeanwhile)
{
    int shown = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (!bar->isVisible())
            return;
        ++shown;
        EXPECT_TRUE(interface.isRunning());
        EXPECT_TRUE(input->isReadOnly());
        EXPECT_GE(bar->value(), 0);
    });
    watch.start(1);
    window().openFile(m_path);
    EXPECT_GT(shown, 0);
    EXPECT_FALSE(isFormerThere());
    expectReady();
}

TEST_F(LargeDrawing, EscWhileItIsReadKeepsTheFormerDrawing)
{
    whileItIsRead([this] { pressEscape(); });
    window().openFile(m_path);
    EXPECT_TRUE(isFormerThere());
    EXPECT_EQ(entityCount(), "1\n");
    EXPECT_THAT(output(), HasSubstr("large.dxf: it was not read to its end"));
    EXPECT_EQ(window().windowTitle(), QStringLiteral("mine.dxf[*] – lisphost"));
    expectReady();
    type(QStringLiteral("(cdr (assoc 0 (entget mine)))"));
    EXPECT_THAT(output(), HasSubstr("\"POINT\""));
}

TEST_F(LargeDrawing, EscAtAnyMomentLeavesOneOfTheTwo)
{
    for (int moment = 0; moment < 400; moment += 40) {
        bool isPressed = false;
        QTimer::singleShot(moment, &interface.window(), [&] {
            pressEscape();
            isPressed = true;
        });
        window().openFile(m_path);
        expectReady();
        ASSERT_TRUE(QTest::qWaitFor([&] { return isPressed; }));
        const std::string count = entityCount();
        EXPECT_EQ(count, isFormerThere() ? "1\n" : std::to_string(LargeCount) + '\n') << moment;
        document.open(m_folder.filePath(QStringLiteral("mine.dxf")));
    }
}

TEST_F(LargeDrawing, EscStopsAProgramThatOpensItAndKeepsTheFormerDrawing)
{
    whileItIsRead([this] { pressEscape(); });
    type(QStringLiteral("(progn (command \"_.OPEN\" \"%1\") (princ \"went on\"))").arg(m_path));
    EXPECT_TRUE(isFormerThere());
    EXPECT_THAT(output(), HasSubstr("error: Function cancelled\n"));
    EXPECT_THAT(output(), testing::Not(HasSubstr("\nwent on")));
    expectReady();
}

TEST_F(LargeDrawing, ClosingTheWindowWhileItIsReadGivesItUpAndCloses)
{
    whileItIsRead([this] { EXPECT_FALSE(window().close()); });
    window().openFile(m_path);
    EXPECT_TRUE(isFormerThere());
    EXPECT_FALSE(window().isVisible());
}

TEST_F(LargeDrawing, EscWhileACommandLooksForEntitiesCancelsIt)
{
    window().openFile(m_path);
    EXPECT_TRUE(moveAll([this] { pressEscape(); }));
    EXPECT_THAT(output(), HasSubstr("*Cancel*"));
    expectReady();
}

TEST_F(LargeDrawing, ClosingTheWindowWhileACommandLooksForEntitiesClosesIt)
{
    window().openFile(m_path);
    EXPECT_TRUE(moveAll([this] { EXPECT_FALSE(window().close()); }));
    EXPECT_FALSE(window().isVisible());
}
