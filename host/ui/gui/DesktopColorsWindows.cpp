#include "host/ui/gui/DesktopColors.h"

#include <QSettings>

std::unique_ptr<QObject> followDesktopColors(std::function<void(ColorScheme)> tell)
{
    const QSettings settings(
        QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    const QVariant usesLightColors = settings.value(QStringLiteral("AppsUseLightTheme"));
    if (usesLightColors.isValid())
        tell(usesLightColors.toInt() == 0 ? ColorScheme::Dark : ColorScheme::Light);
    return std::make_unique<QObject>();
}
