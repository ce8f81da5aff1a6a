// What the window's view costs with a million lines: making the scene, and one picture of 1600 by 1000 pixels of all
// of it, of a tenth and of a thousandth. A picture may take 33 milliseconds for 30 of them in a second.
#include "host/render/Scene.h"

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

#include <random>

namespace {

constexpr int LineCount = 1000000, Width = 1600, Height = 1000;
constexpr double Size = 10000;

// Lines of up to a hundredth of the drawing's width in seven colours.
const drawing::Drawing &million()
{
    static const QTemporaryDir folder;
    static const drawing::Drawing drawing = [] {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> place(0, Size), step(-Size / 100, Size / 100);
        QByteArray bytes("0\nSECTION\n2\nENTITIES\n");
        for (int i = 0; i < LineCount; ++i) {
            const double x = place(random), y = place(random) * Height / Width;
            char line[200];
            std::snprintf(line, sizeof line, "0\nLINE\n8\n0\n62\n%d\n10\n%.3f\n20\n%.3f\n11\n%.3f\n21\n%.3f\n",
                          i % 7 + 1, x, y, x + step(random), y + step(random));
            bytes += line;
        }
        bytes += "0\nENDSEC\n0\nEOF\n";
        QFile file(folder.filePath(QStringLiteral("lines.dxf")));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        file.close();
        return drawing::Drawing(file.fileName());
    }();
    return drawing;
}

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
