// Whatever a person does, in any order, while programs and commands ask or nothing runs: the window goes on.

#include "tests/host/ui/interaction/InteractionTest.h"

#include <QWheelEvent>

#include <random>

namespace {

constexpr int EventCount = 500;

class RandomEvents : public InteractionTest
{
protected:
    RandomEvents() { type("(progn (command \"_.line\" '(10 10) '(40 30) \"\") (command \"_.circle\" '(80 40) 10))"); }

    int number(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }
    double x() { return number(100); }
    double y() { return number(80); }
    void wheel()
    {
        const QPointF position = at(x(), y());
        QWheelEvent event(position, view().mapToGlobal(position), QPoint(), QPoint(0, number(2) == 0 ? 120 : -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view(), &event);
    }
    void typeAnything()
    {
        static const std::vector<const char *> texts = {"",
                                                        "10,20",
                                                        "mid",
                                                        "_end",
                                                        "5",
                                                        "u",
                                                        "_.line",
                                                        "_.circle",
                                                        "_.erase",
                                                        "_.move",
                                                        "_last",
                                                        "_.redo",
                                                        "_.zoom",
                                                        "_e",
                                                        "_.pline",
                                                        "_.-layer",
                                                        "_off",
                                                        "(setvar \"CTAB\" \"Layout1\")",
                                                        "(setvar \"TILEMODE\" 1)",
                                                        "(progn (grdraw '(0 0) '(9 9) 1) (redraw))",
                                                        "(ssget)",
                                                        "(entsel)",
                                                        "(getpoint '(1 1) \"P: \")",
                                                        "(getcorner '(1 1))",
                                                        "(grread T)",
                                                        "(command \"_.move\" \"_last\" \"\" pause pause)"};
        type(texts[static_cast<std::size_t>(number(static_cast<int>(texts.size())))]);
    }
    void doAnything()
    {
        switch (number(11)) {
        case 0:
            return escape();
        case 1:
            return wheel();
        case 2:
            return rightClick();
        case 3:
            return interface.window().resize(500 + number(500), 400 + number(400));
        case 4:
        case 5:
            return typeAnything();
        case 6:
            return QTest::mousePress(&view(), Qt::LeftButton, Qt::NoModifier, at(x(), y()));
        case 7:
            return QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, at(x(), y()));
        case 8:
            return move(x(), y());
        case 9:
            return interactive.area().tabs().setCurrentIndex(number(interactive.area().tabs().count()));
        default:
            return click(x(), y(), number(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }

    // Also while the event before waits for the answer to a question: each asks for the next one first. At the end
    // whatever still asks is cancelled.
    void goOn()
    {
        m_isOver = m_done == EventCount && !interface.isRunning();
        if (m_isOver)
            return;
        QTimer::singleShot(0, &view(), [this] { goOn(); });
        if (m_done < EventCount) {
            ++m_done;
            doAnything();
        } else {
            escape();
        }
    }
    bool isOver() const { return m_isOver; }

private:
    std::mt19937 m_random{11};
    int m_done = 0;
    bool m_isOver = false;
};

} // namespace

TEST_F(RandomEvents, LeaveAWindowThatStillWorks)
{
    goOn();
    ASSERT_TRUE(QTest::qWaitFor([this] { return isOver(); }, 120000));
    escape();
    type("(progn (setvar \"TILEMODE\" 1) (command \"_.-layer\" \"_on\" \"*\" \"\"))");
    interactive.area().tabs().setCurrentIndex(0);
    view().show({50, 40}, 80);
    EXPECT_EQ(value("(+ 1 2)"), "3");
    type("(command \"_.line\" '(20 60) '(70 60) \"\")");
    later([this] { click(50, 60); });
    EXPECT_EQ(value("(cdr (assoc 0 (entget (car (entsel)))))"), "\"LINE\"");
}
