#include "tests/screens/Screen.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QImageWriter>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace {

// The window manager puts the frame round a window some time after the window is there. Now and then Qt does not hear
// of it, and the picture is without the frame.
constexpr int FramePatienceMilliseconds = 1000;
constexpr int PlacePatienceMilliseconds = 10000;
constexpr int DrawingMilliseconds = 300;

// With its frame. Now and then Qt has asked for the frame while that had no size yet, and does not ask again.
QRect outlineOf(const QWidget &window)
{
    const QRect frame = window.frameGeometry();
    return frame.contains(window.geometry()) ? frame : window.geometry();
}

// The window manager moves a window to its place after the frame is there, on a busy machine some time after.
bool standsOnScreen(const QWidget &window)
{
    return window.screen()->geometry().contains(outlineOf(window));
}

// False when it has not come to a place on the screen in time.
bool waitForPlaceOnScreen(const QWidget &window)
{
    const QDeadlineTimer patience(PlacePatienceMilliseconds);
    QRect before;
    do {
        before = outlineOf(window);
        QTest::qWait(DrawingMilliseconds);
    } while ((outlineOf(window) != before || !standsOnScreen(window)) && !patience.hasExpired());
    return outlineOf(window) == before && standsOnScreen(window);
}

} // namespace

ScreenTest::ScreenTest()
{
    mainWindow().resize(600, 400);
    mainWindow().show();
    documentWindow().resize(200, 100);
}

void waitUntilReady(QWidget &window)
{
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto hasFrame = [&] { return window.frameGeometry() != window.geometry(); };
    (void)QTest::qWaitFor(hasFrame, FramePatienceMilliseconds);
    QTest::qWait(DrawingMilliseconds);
}

void takePicture(QWidget &window, const QString &name)
{
    const bool isInPlace = waitForPlaceOnScreen(window);
    const QRect area = outlineOf(window);
    EXPECT_TRUE(isInPlace) << area.x() << ' ' << area.y() << ' ' << area.width() << ' ' << area.height();
    const QPixmap picture = window.screen()->grabWindow(0, area.x(), area.y(), area.width(), area.height());
    EXPECT_EQ(picture.deviceIndependentSize().toSize(), area.size());
    QImageWriter file(qEnvironmentVariable("SCREEN_PICTURES") + u'/' + name + u".png"_qs);
    EXPECT_TRUE(file.write(picture.toImage())) << file.errorString().toStdString();
}

void typeKey(QWidget &window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

void typeText(QWidget &window, const QString &text)
{
    for (const QChar character : text)
        QTest::keyClick(window.windowHandle(), character.toLatin1());
}

void click(QWidget &widget)
{
    QWidget *window = widget.window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      widget.mapTo(window, widget.rect().center()));
}
