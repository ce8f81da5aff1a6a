#pragma once

#include "host/render/Sheet.h"

#include <QString>

#include <optional>

namespace render {

enum class PlotFormat { Png, Svg, Pdf };
std::optional<PlotFormat> plotFormat(const QString &path); // by the ending, in any case; none: it is another

// Pixels of a PNG file; the height follows from the sheet.
inline constexpr int UsualPixelWidth = 1600;

// Draws the sheet into a file, which is replaced in one step. A PDF file has the sheet's size. False, with a reason,
// when it cannot be written. Needs no window, but for PDF a QGuiApplication.
bool writePlot(const Sheet &sheet, PlotFormat format, const QString &path, QString &failure,
               int pixelWidth = UsualPixelWidth);

// The sheet with a white paper.
QImage imageOf(const Sheet &sheet, int pixelWidth);

} // namespace render
