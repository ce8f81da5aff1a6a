#pragma once

#include <QFile>

#include <gtest/gtest.h>

constexpr int LargeCount = 400000; // lines; reading them takes longer than a window may stand still

inline void writeLines(const QString &path, int count)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QByteArray bytes("0\nSECTION\n2\nENTITIES\n");
    for (int i = 0; i < count; ++i)
        bytes += "0\nLINE\n8\n0\n10\n0.0\n20\n" + QByteArray::number(i) + "\n11\n1000.0\n21\n0.0\n";
    ASSERT_GT(file.write(bytes + "0\nENDSEC\n0\nEOF\n"), 0);
}
