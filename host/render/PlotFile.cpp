#include "host/render/PlotFile.h"

#include "host/render/ListPainter.h"
#include "host/render/SvgFile.h"
#include "storage/AtomicFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>

namespace render {

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr int PdfResolution = 1200; // dots for an inch, so that rounded numbers are no harm
constexpr double ThinnestOnPaper = 0.05;

void paintSheet(const Sheet &sheet, double pixelsPerMillimetre, double thinnest, QPainter &painter)
{
    DeviceView view;
    view.toDevice =
        QTransform(pixelsPerMillimetre, 0, 0, -pixelsPerMillimetre, 0, sheet.size.height() * pixelsPerMillimetre);
    view.pixelsPerMillimetre = pixelsPerMillimetre;
    view.thinnest = thinnest;
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Sheet::Part &part : sheet.parts) {
        painter.save();
        QPainterPath outline;
        outline.addPolygon(view.toDevice.map(part.space.outline));
        painter.setClipPath(outline);
        paint(part.list, view, painter);
        painter.restore();
    }
}

bool paintPdf(const Sheet &sheet, QBuffer &buffer)
{
    QPdfWriter writer(&buffer);
    writer.setResolution(PdfResolution);
    writer.setPageSize(QPageSize(sheet.size, QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    constexpr double DotsPerMillimetre = PdfResolution / MillimetresPerInch;
    paintSheet(sheet, DotsPerMillimetre, ThinnestOnPaper * DotsPerMillimetre, painter);
    return painter.end();
}

bool paintFile(const Sheet &sheet, PlotFormat format, int pixelWidth, QBuffer &buffer)
{
    switch (format) {
    case PlotFormat::Png:
        return imageOf(sheet, pixelWidth).save(&buffer, "PNG");
    case PlotFormat::Svg:
        return buffer.write(svgOf(sheet)) >= 0;
    case PlotFormat::Pdf:
        return paintPdf(sheet, buffer);
    }
    return false;
}

} // namespace

std::optional<PlotFormat> plotFormat(const QString &path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == QLatin1String("png"))
        return PlotFormat::Png;
    if (ending == QLatin1String("svg"))
        return PlotFormat::Svg;
    if (ending == QLatin1String("pdf"))
        return PlotFormat::Pdf;
    return std::nullopt;
}

QImage imageOf(const Sheet &sheet, int pixelWidth)
{
    const double pixelsPerMillimetre = pixelWidth / sheet.size.width();
    const int height = std::max(1, qRound(sheet.size.height() * pixelsPerMillimetre));
    QImage image(pixelWidth, height, QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(pixelsPerMillimetre * 1000));
    image.setDotsPerMeterY(qRound(pixelsPerMillimetre * 1000));
    image.fill(sheet.background);
    QPainter painter(&image);
    paintSheet(sheet, pixelsPerMillimetre, 1, painter);
    return image;
}

bool writePlot(const Sheet &sheet, PlotFormat format, const QString &path, QString &failure, int pixelWidth)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!paintFile(sheet, format, pixelWidth, buffer)) {
        failure = QStringLiteral("%1: this kind of file cannot be made here").arg(path);
        return false;
    }
    buffer.close();
    return replaceFile(path, buffer.data(), failure, Writers::Free);
}

} // namespace render
