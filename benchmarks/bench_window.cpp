// What a person waits for in a window with a million lines: a frame of a pan or a zoom, until it is on the screen, and
// the first picture after opening. It needs a screen, such as Xvfb:
//     python3 tests/screens/on_screen.py xcb 1 /tmp build/release/bin/bench_window
#include "benchmarks/MillionLines.h"
#include "host/ui/view/DrawingArea.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int Width = 1200, Height = 900, Frames = 200;

// Of single frames, in milliseconds; a mean would hide the slow ones.
class FrameTimes
{
public:
    template <class Frame> void measure(Frame frame)
    {
        QElapsedTimer clock;
        clock.start();
        frame();
        m_times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    void tell(benchmark::State &state)
    {
        std::sort(m_times.begin(), m_times.end());
        state.counters["p50_ms"] = m_times[m_times.size() / 2];
        state.counters["p95_ms"] = m_times[m_times.size() * 95 / 100];
        state.counters["most_ms"] = m_times.back();
    }

private:
    std::vector<double> m_times;
};

// Before that nothing is painted.
void showOnScreen(DrawingArea &area)
{
    area.resize(Width, Height);
    area.show();
    while (!area.windowHandle()->isExposed())
        QCoreApplication::processEvents();
}

DrawingArea &area()
{
    static DrawingArea *area = [] {
        auto *made = new DrawingArea([]() -> const drawing::Drawing & { return million(); });
        showOnScreen(*made);
        return made;
    }();
    return *area;
}

// The argument: how many times as large as when all is seen.
void pan(benchmark::State &state)
{
    DrawingView &view = area().view();
    view.zoomExtents();
    const double height = view.height() / view.scale() / static_cast<double>(state.range(0));
    const QPointF centre = view.centre();
    double shift = 0;
    FrameTimes times;
    for (auto _ : state)
        times.measure([&] {
            shift += height / 100;
            view.show(centre + QPointF(std::fmod(shift, height), 0), height);
            view.repaint();
            QCoreApplication::processEvents();
        });
    times.tell(state);
}
BENCHMARK(pan)
    ->Arg(1)
    ->Arg(3)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(Frames);

// In and out again, by steps of the wheel.
void zoom(benchmark::State &state)
{
    constexpr double Step = 1.25;
    constexpr int Steps = 20;
    DrawingView &view = area().view();
    view.zoomExtents();
    int step = 0;
    FrameTimes times;
    for (auto _ : state)
        times.measure([&] {
            view.zoom(step < Steps ? Step : 1 / Step, QRectF(view.rect()).center());
            step = (step + 1) % (2 * Steps);
            view.repaint();
            QCoreApplication::processEvents();
        });
    times.tell(state);
}
BENCHMARK(zoom)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(Frames);

void openAndShow(benchmark::State &state)
{
    const QString path = million().path();
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        const drawing::Drawing drawing(path);
        const qint64 loaded = clock.restart();
        DrawingArea opened([&]() -> const drawing::Drawing & { return drawing; });
        state.counters["scene_ms"] = static_cast<double>(clock.elapsed());
        showOnScreen(opened);
        opened.view().repaint();
        state.counters["load_ms"] = static_cast<double>(loaded);
        state.counters["picture_ms"] = static_cast<double>(clock.elapsed());
    }
}
BENCHMARK(openAndShow)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
