#pragma once

#include "host/ui/gui/DesktopColors.h"

#include <QDBusVariant>

// Asks the desktop's settings portal for the colours that its user prefers, and hears of changes. Without a session
// bus, or a portal on it, it tells nothing.
class SettingsPortal final : public QObject
{
    Q_OBJECT

public:
    explicit SettingsPortal(std::function<void(ColorScheme)> tell);

private Q_SLOTS:
    void hearOfChange(const QString &changedGroup, const QString &changedKey, const QDBusVariant &value);

private:
    std::function<void(ColorScheme)> m_tell;
};
