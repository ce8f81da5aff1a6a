#include "host/ui/gui/SettingsPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Settings.html
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString group = QStringLiteral("org.freedesktop.appearance");
const QString key = QStringLiteral("color-scheme");

// The value stands in one variant in signals, in two in the answer to Read.
ColorScheme schemeOf(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    switch (value.toUInt()) {
    case 1:
        return ColorScheme::Dark;
    case 2:
        return ColorScheme::Light;
    default:
        return ColorScheme::NoPreference;
    }
}

} // namespace

SettingsPortal::SettingsPortal(std::function<void(ColorScheme)> tell) : m_tell(std::move(tell))
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    qRegisterMetaType<QDBusVariant>(); // Qt looks for it by its name
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(hearOfChange(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << group << key;
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            m_tell(schemeOf(reply.value().variant()));
        answer->deleteLater();
    });
}

void SettingsPortal::hearOfChange(const QString &changedGroup, const QString &changedKey, const QDBusVariant &value)
{
    if (changedGroup == group && changedKey == key)
        m_tell(schemeOf(value.variant()));
}

std::unique_ptr<QObject> followDesktopColors(std::function<void(ColorScheme)> tell)
{
    return std::make_unique<SettingsPortal>(std::move(tell));
}
