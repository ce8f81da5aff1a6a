#include <QApplication>

#include <gtest/gtest.h>

#include <array>

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
    return RUN_ALL_TESTS();
}
