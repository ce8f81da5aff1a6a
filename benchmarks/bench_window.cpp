// What a person waits for in a window with a million lines: a frame of a pan or a zoom, until it is on the screen, and
// the first picture after opening. It needs a screen, such as Xvfb:
//     python3 tests/screens/on_screen.py 1 /tmp build/release/bin/bench_window
#include "benchmarks/MillionLines.h"
#include "host/ui/view/DrawingArea.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>

#include <cmath>

namespace {

constexpr int Width = 1200, Height = 900;

DrawingArea &area()
{
    static DrawingArea *area = [] {
        auto *made = new DrawingArea([]() -> const drawing::Drawing & { return million(); });
        made->resize(Width, Height);
        made->show();
        QCoreApplication::processEvents();
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
    for (auto _ : state) {
        shift += height / 100;
        view.show(centre + QPointF(std::fmod(shift, height), 0), height);
        view.repaint();
        QCoreApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(pan)->Arg(1)->Arg(3)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// In and out again, by steps of the wheel.
void zoom(benchmark::State &state)
{
    constexpr double Step = 1.25;
    constexpr int Steps = 20;
    DrawingView &view = area().view();
    view.zoomExtents();
    int step = 0;
    for (auto _ : state) {
        view.zoom(step < Steps ? Step : 1 / Step, QRectF(view.rect()).center());
        step = (step + 1) % (2 * Steps);
        view.repaint();
        QCoreApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(zoom)->Unit(benchmark::kMillisecond)->UseRealTime();

void openAndShow(benchmark::State &state)
{
    const QString path = million().path();
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        const drawing::Drawing drawing(path);
        const qint64 loaded = clock.restart();
        DrawingArea opened([&]() -> const drawing::Drawing & { return drawing; });
        opened.resize(Width, Height);
        opened.show();
        QCoreApplication::processEvents();
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
