// What the window's view costs with a million lines: making the scene, and one picture of 1600 by 1000 pixels of all
// of it, of a tenth and of a thousandth. A picture may take 33 milliseconds for 30 of them in a second.
#include "benchmarks/MillionLines.h"
#include "host/render/Scene.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int Width = 1600, Height = 1000;

const render::Scene &scene()
{
    static const render::Scene scene = render::Scene::ofModel(million(), {0, false});
    return scene;
}

void open(benchmark::State &state)
{
    million();
    const QString path = million().path();
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing::Drawing(path));
}
BENCHMARK(open)->Unit(benchmark::kMillisecond)->Iterations(2);

void makeScene(benchmark::State &state)
{
    million();
    for (auto _ : state)
        benchmark::DoNotOptimize(render::Scene::ofModel(million(), {0, false}));
}
BENCHMARK(makeScene)->Unit(benchmark::kMillisecond)->Iterations(2);

// The argument: how many times as large as when all is seen.
void paintScene(benchmark::State &state)
{
    const QRectF bounds = scene().bounds();
    const double scale = Width / bounds.width() * static_cast<double>(state.range(0));
    QImage image(Width, Height, QImage::Format_RGB32);
    render::DeviceView view;
    double shift = 0;
    for (auto _ : state) {
        shift += 1; // a pan
        view.toDevice = QTransform(scale, 0, 0, -scale, Width / 2.0 - bounds.center().x() * scale + shift,
                                   Height / 2.0 + bounds.center().y() * scale);
        image.fill(0xff000000U);
        scene().paint(view, image);
    }
}
BENCHMARK(paintScene)->Arg(1)->Arg(3)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
