// What the extents of entities cost, as they stand in a file.
#include "host/drawing/geometry/Extents.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <fstream>
#include <memory>

namespace {

constexpr const char *Entities = "0\nSECTION\n2\nENTITIES\n"
                                 "0\nLINE\n5\nA1\n330\n1F\n100\nAcDbEntity\n8\nWalls\n100\nAcDbLine\n"
                                 "10\n1234.567891\n20\n-9876.54321\n30\n0.0\n11\n5678.123456\n21\n432.198765\n31\n0.0\n"
                                 "0\nCIRCLE\n5\nA2\n330\n1F\n100\nAcDbEntity\n8\nWalls\n100\nAcDbCircle\n"
                                 "10\n1234.567891\n20\n-9876.54321\n30\n0.0\n40\n12.5\n"
                                 "0\nTEXT\n5\nA3\n330\n1F\n100\nAcDbEntity\n8\nWalls\n100\nAcDbText\n"
                                 "10\n1234.567891\n20\n-9876.54321\n30\n0.0\n40\n2.5\n1\nGround floor\n100\nAcDbText\n"
                                 "0\nENDSEC\n0\nEOF\n";

std::unique_ptr<drawing::Drawing> sampleDrawing()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("sample.dxf"));
    std::ofstream(path.toStdString()) << Entities;
    return std::make_unique<drawing::Drawing>(path);
}

void extentsOfEntity(benchmark::State &state, std::uint64_t handle)
{
    const auto drawing = sampleDrawing();
    drawing->database().journal().setRecording(drawing::Journal::Recording::Off);
    const auto id = drawing->database().find({handle});
    for (auto _ : state) {
        drawing->database().journal().remember(id); // as a change does, so that nothing is known from before
        benchmark::DoNotOptimize(geometry::extentsOf(*drawing, id));
    }
}
BENCHMARK_CAPTURE(extentsOfEntity, line, 0xA1);
BENCHMARK_CAPTURE(extentsOfEntity, circle, 0xA2);
BENCHMARK_CAPTURE(extentsOfEntity, text, 0xA3);

void extentsOfTheSameLineAgain(benchmark::State &state)
{
    const auto drawing = sampleDrawing();
    const auto id = drawing->database().find({0xA1});
    for (auto _ : state)
        benchmark::DoNotOptimize(geometry::extentsOf(*drawing, id));
}
BENCHMARK(extentsOfTheSameLineAgain);

} // namespace
