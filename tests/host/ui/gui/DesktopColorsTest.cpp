// The desktop's setting for dark and light, as its portal tells it on a bus of the test's own.

#include "host/ui/gui/DesktopColors.h"
#include "host/ui/gui/CheckBoxStyle.h"
#include "host/ui/gui/CommandPanel.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QPainter>
#include <QPalette>
#include <QPlainTextEdit>
#include <QProcess>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr char service[] = "org.freedesktop.portal.Desktop", path[] = "/org/freedesktop/portal/desktop";

class Portal final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    uint scheme = 0;

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key) const
    {
        const bool isKnown =
            group == QLatin1String("org.freedesktop.appearance") && key == QLatin1String("color-scheme");
        return QDBusVariant(QVariant::fromValue(QDBusVariant(isKnown ? scheme : 99)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);
};

bool isDark()
{
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

} // namespace

TEST(DesktopColors, AreToldAtTheStartAndAtEachChange)
{
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--print-address")});
    if (!bus.waitForStarted())
        GTEST_SKIP() << "dbus-daemon is missing";
    ASSERT_TRUE(bus.waitForReadyRead());
    const QByteArray address = bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection connection = QDBusConnection::connectToBus(QString::fromUtf8(address), QStringLiteral("portal"));
    Portal portal;
    portal.scheme = 1;
    ASSERT_TRUE(connection.registerObject(QLatin1String(path), &portal,
                                          QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    ASSERT_TRUE(connection.registerService(QLatin1String(service)));

    std::vector<ColorScheme> told;
    const auto follower = followDesktopColors([&](ColorScheme scheme) { told.push_back(scheme); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == std::vector{ColorScheme::Dark}; }));
    const QString group = QStringLiteral("org.freedesktop.appearance"), key = QStringLiteral("color-scheme");
    Q_EMIT portal.SettingChanged(group, QStringLiteral("contrast"), QDBusVariant(1u));
    Q_EMIT portal.SettingChanged(group, key, QDBusVariant(2u));
    Q_EMIT portal.SettingChanged(group, key, QDBusVariant(0u));
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 3; }));
    EXPECT_EQ(told, (std::vector{ColorScheme::Dark, ColorScheme::Light, ColorScheme::NoPreference}));

    QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    bus.terminate();
    bus.waitForFinished();
}

TEST(DesktopColors, DarkOnesAreUsedUntilLightOnesAreWanted)
{
    ASSERT_FALSE(isDark());
    useColorScheme(ColorScheme::Dark);
    EXPECT_TRUE(isDark());
    useColorScheme(ColorScheme::Light);
    EXPECT_FALSE(isDark());
    useColorScheme(ColorScheme::Dark);
    useColorScheme(ColorScheme::NoPreference);
    EXPECT_FALSE(isDark());
}

// The greatest difference in lightness between what a style draws of a box and the background.
int contrastOfBox(const QStyle &style)
{
    QStyleOptionButton box;
    box.palette = QApplication::palette();
    box.rect = QRect(0, 0, 14, 14);
    box.state = QStyle::State_Enabled | QStyle::State_Off;
    const QColor background = box.palette.color(QPalette::Base);
    QImage image(box.rect.size(), QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter);
    painter.end();
    int contrast = 0;
    for (int x = 0; x < image.width(); ++x)
        contrast = std::max(contrast, std::abs(image.pixelColor(x, 7).lightness() - background.lightness()));
    return contrast;
}

TEST(DesktopColors, BoxesToTickAreSeenOnDarkBackgrounds)
{
    const CheckBoxStyle style(QStringLiteral("fusion"));
    const std::unique_ptr<QStyle> plain(QStyleFactory::create(QStringLiteral("fusion")));
    EXPECT_EQ(contrastOfBox(style), contrastOfBox(*plain)); // on light ones nothing changes
    useColorScheme(ColorScheme::Dark);
    EXPECT_GT(contrastOfBox(style), 60);
    EXPECT_LT(contrastOfBox(*plain), 30); // else the style has nothing to do any more
    useColorScheme(ColorScheme::NoPreference);
}

TEST(DesktopColors, WhatWasPrintedGetsTheColoursOfItsVoiceAnew)
{
    CommandPanel panel;
    panel.print(QStringLiteral("said "));
    panel.print(QStringLiteral("typed "), CommandPanel::Voice::Person);
    panel.print(QStringLiteral("wrong\nagain "), CommandPanel::Voice::Error);
    const QTextDocument &output = *panel.findChild<QPlainTextEdit *>()->document();
    const auto colorAt = [&](int position) {
        QTextCursor cursor(const_cast<QTextDocument *>(&output));
        cursor.setPosition(position + 1);
        return cursor.charFormat().foreground().color();
    };
    const std::vector<int> starts = {0, 5, 11, 17};
    std::vector<QColor> light, dark;
    for (const int start : starts)
        light.push_back(colorAt(start));
    useColorScheme(ColorScheme::Dark);
    QCoreApplication::processEvents();
    for (const int start : starts)
        dark.push_back(colorAt(start));
    useColorScheme(ColorScheme::NoPreference);
    QCoreApplication::processEvents();
    for (std::size_t i = 0; i < starts.size(); ++i) {
        EXPECT_GT(dark[i].lightness(), light[i].lightness()) << i;
        EXPECT_EQ(colorAt(starts[i]), light[i]) << i;
    }
    EXPECT_NE(dark[0], dark[1]);
    EXPECT_NE(dark[1], dark[2]);
    EXPECT_EQ(dark[2], dark[3]);
}

#include "DesktopColorsTest.moc"
