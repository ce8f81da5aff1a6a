#include "host/ui/gui/CheckBoxStyle.h"
#include "host/ui/gui/DesktopColors.h"

#include <QApplication>
#include <QSettings>

std::unique_ptr<QObject> followDesktopColors(std::function<void(ColorScheme)> tell)
{
    const QSettings settings(
        QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    const QVariant usesLightColors = settings.value(QStringLiteral("AppsUseLightTheme"));
    const bool isDark = usesLightColors.isValid() && usesLightColors.toInt() == 0;
    if (isDark)
        QApplication::setStyle(new CheckBoxStyle(QStringLiteral("Fusion"))); // the native style knows no dark colours
    tell(isDark ? ColorScheme::Dark : ColorScheme::NoPreference);
    return std::make_unique<QObject>();
}
