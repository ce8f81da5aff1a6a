#include "tests/host/render/DrawnList.h"

#include "host/render/PageSetup.h"
#include "host/render/PlotFile.h"
#include "host/render/SvgFile.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace render {

namespace {

QRectF boundsOf(const Sheet &sheet)
{
    QRectF bounds;
    for (const Sheet::Part &part : sheet.parts)
        bounds |= part.list.bounds();
    return bounds;
}

} // namespace

TEST(Sheet, ModelFillsThePageUpToItsBorder)
{
    TestDrawing test;
    test.line({1000, 1000, 0}, {3000, 2000, 0}, {{8, u"0"}});
    const Sheet sheet = modelSheet(test.drawing);
    EXPECT_DOUBLE_EQ(sheet.size.width(), 420);
    const QRectF bounds = boundsOf(sheet);
    EXPECT_NEAR(bounds.left(), 420 * 0.02, 1e-3);
    EXPECT_NEAR(bounds.right(), 420 * 0.98, 1e-3);
    EXPECT_NEAR(bounds.width() / bounds.height(), 2, 1e-5);
    EXPECT_NEAR(bounds.center().y(), sheet.size.height() / 2, 1e-3);
}

// Forty blocks, each with the one before ten times: more lines than there are atoms.
TEST(Sheet, BlocksThatShowTooMuchAreCutAndWhatIsBesideThemIsNot)
{
    TestDrawing test;
    const auto block = [&test](int number) {
        const std::u16string name = u"B" + QString::number(number).toStdU16String();
        return drawing::addBlock(test.drawing.database(), test.drawing.tables(), {name});
    };
    test.addTo(block(0), u"LINE", u"AcDbLine", {{10, Point{0, 0, 0}}, {11, Point{1, 1, 0}}}, {{8, u"0"}});
    for (int number = 1; number <= 40; ++number) {
        const RecordId start = block(number);
        const std::u16string shown = u"B" + QString::number(number - 1).toStdU16String();
        for (int place = 0; place < 10; ++place)
            test.addTo(start, u"INSERT", u"AcDbBlockReference", {{2, shown}, {10, Point{1.0 * place, 0, 0}}},
                       {{8, u"0"}});
    }
    test.insert(u"B40", {}, {{8, u"0"}});
    test.insert(u"B40", {}, {{8, u"0"}});
    const RecordId beside = test.line({0, 5, 0}, {9, 5, 0}, {{8, u"0"}});
    QElapsedTimer timer;
    timer.start();
    const Sheet sheet = modelSheet(test.drawing);
    EXPECT_EQ(sheet.cutEntities, 2U);
    EXPECT_LT(timer.elapsed(), 60000); // without a limit of all together it takes minutes
    EXPECT_LT(sheet.parts[0].list.items().size(), 1'000'000U);
    EXPECT_EQ(sheet.parts[0].list.items().back().entity, beside);
}

TEST(Sheet, WhatLargeDrawingsShowOfBlocksIsWhole)
{
    TestDrawing test;
    const RecordId start = drawing::addBlock(test.drawing.database(), test.drawing.tables(), {u"Row"});
    for (int place = 0; place < 100; ++place)
        test.addTo(start, u"LINE", u"AcDbLine", {{10, Point{1.0 * place, 0, 0}}, {11, Point{1.0 * place, 1, 0}}},
                   {{8, u"0"}});
    test.insert(u"Row", {{70, std::int64_t{30}}, {71, std::int64_t{100}}, {44, 100.0}, {45, 2.0}}, {{8, u"0"}});
    const Sheet sheet = modelSheet(test.drawing);
    EXPECT_EQ(sheet.cutEntities, 0U);
    EXPECT_EQ(sheet.parts[0].list.items().size(), 300'000U);
}

TEST(Sheet, EmptyModelOneOfAPointAndATallOneHavePages)
{
    EXPECT_GT(modelSheet(drawing::Drawing()).size.height(), 0);
    TestDrawing point, tall;
    point.add(u"POINT", u"AcDbPoint", {{10, Point{5, 5, 0}}}, {{8, u"0"}});
    EXPECT_TRUE(boundsOf(modelSheet(point.drawing)).center().x() == 210);
    tall.line({0, 0, 0}, {0, 1e9, 0}, {{8, u"0"}});
    const Sheet sheet = modelSheet(tall.drawing);
    EXPECT_LT(sheet.size.height(), 700);
    EXPECT_LT(boundsOf(sheet).bottom(), sheet.size.height());
}

TEST(Sheet, ImageHasTheColorOfALineAtItsPlace)
{
    TestDrawing test;
    test.line({0, 0, 0}, {100, 0, 0}, {{8, u"0"}, {62, std::int64_t{1}}, {370, std::int64_t{211}}});
    test.line({0, 50, 0}, {100, 50, 0}, {{8, u"0"}, {62, std::int64_t{5}}, {370, std::int64_t{211}}});
    const QImage image = imageOf(modelSheet(test.drawing), 400);
    EXPECT_EQ(image.width(), 400);
    const int border = 8;
    EXPECT_EQ(image.pixelColor(200, border), QColor(Qt::blue)); // up is up
    EXPECT_EQ(image.pixelColor(200, image.height() - 1 - border), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(200, image.height() / 2), QColor(Qt::white));
}

TEST(Sheet, LayoutHasItsPaperAndStandsAtItsMargins)
{
    TestDrawing test;
    const auto layouts = drawing::layouts(test.drawing.database());
    const auto layout = std::find_if(layouts.begin(), layouts.end(), [](const auto &page) { return page.tab == 1; });
    ASSERT_NE(layout, layouts.end());
    test.add(u"LINE", u"AcDbLine", {{10, Point{0, 0, 0}}, {11, Point{100, 10, 0}}}, {{67, std::int64_t{1}}, {8, u"0"}});
    const PageSetup setup = pageSetup(test.drawing.database(), layout->object);
    const Sheet sheet = layoutSheet(test.drawing, *layout);
    EXPECT_EQ(sheet.size, setup.paper);
    EXPECT_NEAR(boundsOf(sheet).left(), setup.margins.left(), 1e-4);
    EXPECT_NEAR(boundsOf(sheet).top(), setup.margins.bottom(), 1e-4); // y goes upwards
    EXPECT_NEAR(boundsOf(sheet).width(), 100, 1e-4);
    EXPECT_TRUE(boundsOf(modelSheet(test.drawing)).isNull());
}

TEST(Sheet, ViewportShowsTheModelClippedAndScaledWithoutItsFrozenLayers)
{
    TestDrawing test;
    const RecordId cold = test.layer(u"COLD", {{70, std::int64_t{0}}, {62, std::int64_t{3}}});
    test.line({-1000, 500, 0}, {1000, 500, 0}, {{8, u"0"}, {62, std::int64_t{1}}});
    test.line({-1000, 510, 0}, {1000, 510, 0}, {{8, u"COLD"}});
    test.add(u"VIEWPORT", u"AcDbViewport",
             {{10, Point{100, 100, 0}},
              {40, 80.0},
              {41, 60.0},
              {68, std::int64_t{2}},
              {69, std::int64_t{2}},
              {12, Point{0, 500, 0, 2}},
              {16, Point{0, 0, 1}},
              {17, Point{0, 0, 0}},
              {45, 600.0},
              {331, Handle{test.drawing.database().record(cold).handle}}},
             {{67, std::int64_t{1}}, {8, u"0"}});
    const auto sheet = namedSheet(test.drawing, u"layout1");
    ASSERT_TRUE(sheet);
    ASSERT_EQ(sheet->parts.size(), 2u);
    const Sheet::Part &view = sheet->parts[0];
    ASSERT_EQ(view.list.items().size(), 1u); // the cold one is frozen
    EXPECT_EQ(view.list.items()[0].rgb, 0xff0000u);
    EXPECT_NEAR(view.list.bounds().width(), 2000 * 0.1, 1e-3);
    EXPECT_EQ(view.space.kind, ShownSpace::Kind::Viewport);
    EXPECT_EQ(view.space.outline.boundingRect().size(), QSizeF(80, 60));
    EXPECT_NEAR(view.list.bounds().center().y(), view.space.outline.boundingRect().center().y(), 1e-3);
    EXPECT_FALSE(namedSheet(test.drawing, u"no such layout"));
}

TEST(Sheet, SvgIsInMillimetresWithPaperClipAndTheItemsOfTheSheet)
{
    TestDrawing test;
    test.line({0, 0, 0}, {100, 50, 0}, {{8, u"0"}, {62, std::int64_t{1}}, {370, std::int64_t{50}}});
    const Sheet sheet = modelSheet(test.drawing);
    QXmlStreamReader xml(svgOf(sheet));
    QStringList elements;
    QString stroke, width;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement) {
            elements << xml.name().toString();
            const QXmlStreamAttributes attributes = xml.attributes();
            if (attributes.hasAttribute(QStringLiteral("stroke"))) {
                stroke = attributes.value(QStringLiteral("stroke")).toString();
                width = attributes.value(QStringLiteral("stroke-width")).toString();
                EXPECT_EQ(attributes.value(QStringLiteral("d")), QStringLiteral("M8.4 210L411.6 8.4"));
            } else if (elements.last() == QStringLiteral("svg")) {
                EXPECT_EQ(attributes.value(QStringLiteral("width")), QStringLiteral("420mm"));
            }
        }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(elements.join(QLatin1Char(' ')), QStringLiteral("svg rect clipPath path g path"));
    EXPECT_EQ(stroke, QStringLiteral("#ff0000"));
    EXPECT_EQ(width, QStringLiteral("0.5"));
}

TEST(Sheet, PlotFilesAreOfTheirKind)
{
    EXPECT_EQ(plotFormat(QStringLiteral("/a.b/c.PNG")), PlotFormat::Png);
    EXPECT_EQ(plotFormat(QStringLiteral("c.dxf")), std::nullopt);
    EXPECT_EQ(plotFormat(QStringLiteral("png")), std::nullopt);
    TestDrawing test;
    test.line({0, 0, 0}, {100, 50, 0}, {{8, u"0"}});
    const QTemporaryDir folder;
    const auto beginning = [&](PlotFormat format) {
        const QString path = folder.filePath(QStringLiteral("plot"));
        QString failure;
        EXPECT_TRUE(writePlot(modelSheet(test.drawing), format, path, failure)) << failure.toStdString();
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().left(60) : QByteArray();
    };
    EXPECT_TRUE(beginning(PlotFormat::Png).startsWith("\x89PNG"));
    EXPECT_TRUE(beginning(PlotFormat::Svg).contains("<svg"));
    EXPECT_TRUE(beginning(PlotFormat::Pdf).startsWith("%PDF-"));
    QString failure;
    EXPECT_FALSE(
        writePlot(modelSheet(test.drawing), PlotFormat::Png, folder.filePath(QStringLiteral("no/plot")), failure));
    EXPECT_TRUE(failure.contains(QStringLiteral("no/plot")));
}

} // namespace render
