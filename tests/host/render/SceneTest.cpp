#include "tests/host/render/DrawnList.h"

#include "host/render/Raster.h"
#include "host/render/Scene.h"

#include <gtest/gtest.h>

#include <random>

namespace render {

namespace {

constexpr int Size = 200;

QImage painted(const Scene &scene, double scale = 1, const QPointF &shift = {})
{
    QImage image(Size, Size, QImage::Format_RGB32);
    image.fill(Qt::white);
    DeviceView view;
    view.toDevice = QTransform(scale, 0, 0, -scale, shift.x(), Size + shift.y());
    view.pixelsPerMillimetre = 0;
    scene.paint(view, image);
    return image;
}

int countOf(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    return count;
}

} // namespace

TEST(Raster, LineHasAPixelInEachColumnOrRowAndEndsWhereItShould)
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    Raster(image).line(2.5F, 3.5F, 12.5F, 6.5F, 0xff0000ff);
    EXPECT_EQ(countOf(image, Qt::blue), 11);
    EXPECT_EQ(image.pixelColor(2, 3), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(12, 6), QColor(Qt::blue));
    Raster(image).line(5, 18, 5, 8, 0xffff0000);
    EXPECT_EQ(countOf(image, Qt::red), 11);
}

TEST(Raster, WhatLiesOutsideIsCutOff)
{
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    Raster raster(image);
    raster.line(-1e6F, -1e6F, 1e6F, 1e6F, 0xff0000ff);
    EXPECT_EQ(countOf(image, Qt::blue), 20);
    image.fill(Qt::white);
    raster.line(-5, -3, -1, 30, 0xff0000ff);
    raster.line(25, 0, 30, 19, 0xff0000ff);
    raster.pixel(-0.5F, 3, 0xff0000ff);
    raster.pixel(20, 3, 0xff0000ff);
    EXPECT_EQ(countOf(image, Qt::blue), 0);
    raster.setClip(QRect(5, 5, 3, 3));
    raster.line(0, 6, 20, 6, 0xff0000ff);
    EXPECT_EQ(countOf(image, Qt::blue), 3);
}

TEST(Raster, AnyLineStaysInTheImage)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(-40, 60);
    QImage image(30, 30, QImage::Format_RGB32); // rows before and behind tell when another one was written
    image.fill(Qt::white);
    QImage inside(image.bits() + 5 * image.bytesPerLine() + 5 * 4, 20, 20, image.bytesPerLine(), image.format());
    Raster raster(inside);
    for (int i = 0; i < 100000; ++i)
        raster.line(place(random), place(random), place(random), place(random), 0xff0000ff);
    EXPECT_EQ(countOf(image, Qt::blue), 20 * 20);
    EXPECT_EQ(image.pixelColor(4, 10), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(25, 10), QColor(Qt::white));
}

TEST(Scene, LaterEntitiesAreAboveAlsoAmongManyBlocks)
{
    TestDrawing test;
    for (int i = 0; i < 9000; ++i) // enough for several blocks
        test.line({i % 200 + 0.5, 0, 0}, {i % 200 + 0.5, 200, 0}, {{8, u"0"}, {62, std::int64_t{1}}});
    test.line({0, 100.5, 0}, {200, 100.5, 0}, {{8, u"0"}, {62, std::int64_t{5}}});
    const QImage image = painted(Scene::ofModel(test.drawing, {}));
    EXPECT_EQ(countOf(image, Qt::blue), Size);
    EXPECT_EQ(countOf(image, Qt::red), Size * (Size - 1));
}

TEST(Scene, APartHasTheSamePixelsAsTheWhole)
{
    TestDrawing test;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(0, 200);
    for (int i = 0; i < 8000; ++i) { // along the axes: where others are cut off may move their pixels by one
        const double x = place(random), y = place(random), end = place(random);
        test.line({x, y, 0}, i % 2 == 0 ? Point{end, y, 0} : Point{x, end, 0},
                  {{8, u"0"}, {62, std::int64_t{i % 5 + 1}}});
    }
    const Scene scene = Scene::ofModel(test.drawing, {});
    const QImage whole = painted(scene), moved = painted(scene, 1, {-60, 0}); // only a part of it is seen
    EXPECT_EQ(whole.copy(60, 0, 140, 200), moved.copy(0, 0, 140, 200));
}

TEST(Scene, EntitiesAreFoundByPlaceEachOnce)
{
    TestDrawing test;
    const RecordId first = test.line({0, 0, 0}, {10, 10, 0}, {{8, u"0"}});
    const RecordId second = test.line({100, 100, 0}, {110, 110, 0}, {{8, u"0"}});
    const Scene scene = Scene::ofModel(test.drawing, {});
    EXPECT_EQ(scene.entitiesIn(QRectF(-5, -5, 10, 10), 10), std::vector<RecordId>{first});
    EXPECT_EQ(scene.entitiesIn(QRectF(-5, -5, 200, 200), 10), (std::vector<RecordId>{first, second}));
    EXPECT_EQ(scene.entitiesIn(QRectF(40, 40, 10, 10), 10), std::vector<RecordId>{});
    EXPECT_EQ(scene.entitiesIn(QRectF(-5, -5, 200, 200), 1), std::nullopt);
}

TEST(Scene, WhatIsSmallerThanAPixelIsADot)
{
    TestDrawing test;
    test.add(u"CIRCLE", u"AcDbCircle", {{10, Point{1000, 1000, 0}}, {40, 1.0}}, {{8, u"0"}, {62, std::int64_t{1}}});
    const Scene scene = Scene::ofModel(test.drawing, {});
    EXPECT_EQ(countOf(painted(scene, 0.1), Qt::red), 1);
    EXPECT_GT(countOf(painted(scene, 20, {-19900, 19900}), Qt::red), 60);
}

TEST(Scene, EndlessLinesDoNotCountForTheBounds)
{
    TestDrawing test;
    test.line({0, 0, 0}, {100, 50, 0}, {{8, u"0"}});
    test.add(u"XLINE", u"AcDbXline", {{10, Point{0, 20, 0}}, {11, Point{1, 0, 0}}}, {{8, u"0"}});
    const Scene scene = Scene::ofModel(test.drawing, {});
    EXPECT_EQ(scene.bounds(), QRectF(0, 0, 100, 50));
    EXPECT_EQ(scene.itemCount(), 2u);
}

} // namespace render
