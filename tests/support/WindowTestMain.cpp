#include <QApplication>

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

int main(int count, char **values)
{
    testing::InitGoogleTest(&count, values);
    // QT_QPA_PLATFORM leads the same tests to a real screen.
    std::array<char *, 5> offscreen = {values[0], const_cast<char *>("-platform"), const_cast<char *>("offscreen"),
                                       const_cast<char *>("-style"), const_cast<char *>("fusion")};
    int offscreenCount = qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ? 1 : int(offscreen.size());
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(offscreenCount, offscreen.data());
    QApplication::setQuitOnLastWindowClosed(false);
    if (qEnvironmentVariableIsSet("SCREEN_PICTURES") && QGuiApplication::platformName() == u"offscreen") {
        std::fputs("the windows are not on the screen\n", stderr);
        return 1;
    }
    return RUN_ALL_TESTS();
}
