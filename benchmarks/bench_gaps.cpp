// For how long at most the window stands still while a person works on a million lines: the longest time between two
// rounds of its event loop. It needs a screen, such as Xvfb:
//     python3 tests/screens/on_screen.py xcb 1 /tmp build/release/bin/bench_gaps
#include "benchmarks/MillionLines.h"
#include "host/kernel/Host.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/DrawingFiles.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/interaction/InteractiveDrawing.h"
#include "host/ui/view/DrawingArea.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTimer>

namespace {

// A timer that wants to be heard each millisecond.
class Heartbeat
{
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { m_longest = std::max(m_longest, m_clock.restart()); });
        m_timer.start(1);
    }
    // What an action, and what it leaves to be done afterwards, takes at most between two beats, in milliseconds.
    template <class Action> double longestGapIn(Action action)
    {
        rest();
        m_longest = 0;
        m_clock.restart();
        action();
        rest();
        return static_cast<double>(m_longest);
    }

private:
    void rest()
    {
        constexpr int Milliseconds = 1500;
        QElapsedTimer resting;
        resting.start();
        while (resting.elapsed() < Milliseconds)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

struct Window
{
    Window() { interface.window().resize(1200, 900); }

    void type(const char *text) { Q_EMIT interface.window().commandPanel().entered(QString::fromLatin1(text)); }
    void click()
    {
        DrawingView &view = interactive.area().view();
        const QPointF middle = QRectF(view.rect()).center();
        for (const auto &[kind, buttons] :
             {std::pair(QEvent::MouseMove, Qt::NoButton), std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
              std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
            const Qt::MouseButton button = kind == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(kind, middle, view.mapToGlobal(middle), button, buttons, Qt::NoModifier);
            QCoreApplication::sendEvent(&view, &event);
        }
    }

    Host host;
    WindowInterface interface {
        host.services()
    };
    Document &document = host.documents().open();
    CommandRunner runner{interface, document};
    DrawingFiles files{interface.window(), runner, document};
    InteractiveDrawing interactive{interface, runner, document};
};

void gaps(benchmark::State &state)
{
    const QString path = million().path();
    Window window;
    window.interface.window().show();
    Heartbeat heartbeat;
    const auto typed = [&](const char *text) { return heartbeat.longestGapIn([&] { window.type(text); }); };
    for (auto _ : state) {
        state.counters["open_ms"] = heartbeat.longestGapIn([&] { window.files.open(path); });
        state.counters["first_pick_ms"] = heartbeat.longestGapIn([&] { window.click(); });
        window.type("(setvar \"OSMODE\" 37)");
        state.counters["hover_ms"] = heartbeat.longestGapIn([&] {
            QTimer::singleShot(100, &window.runner, [&] { window.click(); });
            window.type("(getpoint)");
        });
        state.counters["freeze_ms"] = typed("(command \"_.-layer\" \"_m\" \"Other\" \"_f\" \"0\" \"\")");
        state.counters["thaw_ms"] = typed("(command \"_.-layer\" \"_t\" \"0\" \"\")");
        state.counters["erase_ms"] = typed("(command \"_.erase\" \"_w\" '(0 0) '(2500 2500) \"\")");
        state.counters["undo_ms"] = typed("u");
        state.counters["zoom_extents_ms"] = typed("(command \"_.zoom\" \"_e\")");
        state.counters["pick_again_ms"] = heartbeat.longestGapIn([&] { window.click(); });
    }
}
BENCHMARK(gaps)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
