#include <QImage>

#include <gtest/gtest.h>

#include <array>

// The module's images, at the size of a button's icon and for screens of two and three times the density.

namespace {

constexpr int ButtonIconSize = 16;

class Images : public testing::TestWithParam<const char *>
{
protected:
    QImage image(const char *suffix) const
    {
        return QImage(QStringLiteral(":/images/%1%2.png").arg(QLatin1String(GetParam()), QLatin1String(suffix)));
    }
};

} // namespace

TEST_P(Images, AreThereForEachDensityWithATransparentBackground)
{
    constexpr std::array<const char *, 3> suffixes = {"", "@2x", "@3x"};
    for (std::size_t i = 0; i < suffixes.size(); ++i) {
        const QImage picture = image(suffixes[i]);
        const int side = ButtonIconSize * (int(i) + 1);
        ASSERT_EQ(picture.size(), QSize(side, side)) << suffixes[i];
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << suffixes[i];
        EXPECT_EQ(qAlpha(picture.pixel(side - 1, side - 1)), 0) << suffixes[i];
    }
}

INSTANTIATE_TEST_SUITE_P(, Images, testing::Values("ok", "cancel"));
