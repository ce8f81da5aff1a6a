// Who watches while a file is read.

#include "host/drawing/Drawing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace drawing {

namespace {

struct Enough
{
};

class ReadWatchTest : public testing::Test
{
protected:
    ReadWatchTest()
    {
        constexpr int Points = 200000;
        QByteArray bytes("0\nSECTION\n2\nENTITIES\n");
        for (int i = 0; i < Points; ++i)
            bytes += "0\nPOINT\n8\n0\n10\n0.0\n20\n0.0\n";
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes + "0\nENDSEC\n0\nEOF\n");
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("points.dxf"));
};

} // namespace

TEST_F(ReadWatchTest, IsToldOfSharesThatGrowUpToTheEnd)
{
    std::vector<double> shares;
    const Drawing drawing(m_path, [&](double share) { shares.push_back(share); });
    EXPECT_GT(shares.size(), 10U);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_EQ(shares.front(), 0);
    EXPECT_EQ(shares.back(), 1);
    EXPECT_TRUE(std::any_of(shares.begin(), shares.end(), [](double share) { return share > 0.4 && share < 0.6; }));
}

TEST_F(ReadWatchTest, EndsTheReadingAtAnyMoment)
{
    int moments = 0;
    Drawing(m_path, [&](double) { ++moments; });
    for (int last = 0; last < moments; ++last) {
        int calls = 0;
        const auto watch = [&](double) {
            if (calls++ == last)
                throw Enough();
        };
        EXPECT_THROW(Drawing(m_path, watch), Enough) << last;
        EXPECT_EQ(calls, last + 1);
    }
}

} // namespace drawing
