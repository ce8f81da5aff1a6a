#pragma once

#include "host/drawing/Drawing.h"

#include <QFile>
#include <QTemporaryDir>

#include <random>

// A million lines of up to a hundredth of the drawing's width in seven colours, read from a file.
inline const drawing::Drawing &million()
{
    constexpr int LineCount = 1000000;
    constexpr double Size = 10000, HeightShare = 0.625;
    static const QTemporaryDir folder;
    static const drawing::Drawing drawing = [] {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> place(0, Size), step(-Size / 100, Size / 100);
        QByteArray bytes("0\nSECTION\n2\nENTITIES\n");
        for (int i = 0; i < LineCount; ++i) {
            const double x = place(random), y = place(random) * HeightShare;
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
