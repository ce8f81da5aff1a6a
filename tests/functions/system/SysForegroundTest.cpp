#include "functions/system.h"

#include "tests/support/HandlerTest.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>

namespace {

// Writes down the states that it goes through.
class Window final : public QWidget
{
public:
    std::vector<Qt::WindowStates> states;
    std::vector<QEvent::Type> events; // those changes and coming to the front

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::WindowStateChange || event->type() == QEvent::ZOrderChange)
            events.push_back(event->type());
        return QWidget::event(event);
    }
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::WindowStateChange)
            states.push_back(windowState());
        QWidget::changeEvent(event);
    }
};

class SysForeground : public HandlerTest
{
    int m_count = 3;
    char m_name[16] = "test", m_option[16] = "-platform", m_platform[16] = "offscreen";
    char *m_arguments[4] = {m_name, m_option, m_platform, nullptr};
    QApplication m_application{m_count, m_arguments};
};

} // namespace

TEST_F(SysForeground, MaximisesTheDocumentsWindowAndShowsItNormal)
{
    Window window;
    window.showMinimized();
    window.states.clear();
    window.events.clear();
    host().setWindow(&window);
    EXPECT_EQ(call(acetSysForeground, {text(u"any")}), Operations{"retNil"});
    ASSERT_GE(window.states.size(), 2U);
    EXPECT_TRUE(window.states.front().testFlag(Qt::WindowMaximized));
    EXPECT_TRUE(window.states.front().testFlag(Qt::WindowActive));
    EXPECT_FALSE(window.states.front().testFlag(Qt::WindowMinimized));
    EXPECT_FALSE(window.isMaximized());
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(SysForeground, GivesTheWindowTheFocusAndRaisesItLast)
{
    Window window;
    QWidget child(&window);
    window.show();
    child.setFocus();
    ASSERT_EQ(window.focusWidget(), &child);
    window.events.clear();
    host().setWindow(&window);
    call(acetSysForeground, {});
    EXPECT_EQ(window.focusWidget(), &window);
    ASSERT_FALSE(window.events.empty());
    EXPECT_EQ(std::count(window.events.begin(), window.events.end(), QEvent::ZOrderChange), 1);
    EXPECT_EQ(window.events.back(), QEvent::ZOrderChange);
}

TEST_F(SysForeground, WithoutAWindowGivesNil)
{
    EXPECT_EQ(call(acetSysForeground, {}), Operations{"retNil"});
}
