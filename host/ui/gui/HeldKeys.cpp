#include "host/ui/gui/HeldKeys.h"

#include "host/ui/gui/VirtualKey.h"
#include "platform/KeyState.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace {

bool systemCanBeAsked()
{
    return QGuiApplication::platformName() == u"xcb" || QGuiApplication::platformName() == u"windows";
}

Qt::MouseButton buttonOf(int virtualKey)
{
    switch (virtualKey) {
    case VK_LBUTTON:
        return Qt::LeftButton;
    case VK_RBUTTON:
        return Qt::RightButton;
    case VK_MBUTTON:
        return Qt::MiddleButton;
    case VK_XBUTTON1:
        return Qt::BackButton;
    case VK_XBUTTON2:
        return Qt::ForwardButton;
    default:
        return Qt::NoButton;
    }
}

bool hasLamp(int virtualKey)
{
    return virtualKey == VK_CAPITAL || virtualKey == VK_NUMLOCK || virtualKey == VK_SCROLL;
}

} // namespace

HeldKeys::HeldKeys()
{
    qApp->installEventFilter(this);
    if (!systemCanBeAsked())
        setKeyStateSource([this](int virtualKey) { return state(virtualKey); });
}

HeldKeys::~HeldKeys()
{
    if (!systemCanBeAsked())
        setKeyStateSource({});
}

std::int16_t HeldKeys::state(int virtualKey) const
{
    const bool isDown = m_down.contains(virtualKey) || (QGuiApplication::mouseButtons() & buttonOf(virtualKey)) != 0;
    return static_cast<std::int16_t>((isDown ? KeyIsDown : 0) | (m_toggled.contains(virtualKey) ? KeyIsToggled : 0));
}

// A key goes to a window first and from there to one widget after the other: it counts once.
bool HeldKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationStateChange &&
        static_cast<QApplicationStateChangeEvent *>(event)->applicationState() != Qt::ApplicationActive)
        m_down.clear(); // nobody will tell of the releases
    if (!watched->isWindowType())
        return false;
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto &keyEvent = *static_cast<QKeyEvent *>(event);
    if (const int virtualKey = virtualKeyOf(keyEvent); virtualKey != 0 && !keyEvent.isAutoRepeat())
        isPress ? press(virtualKey) : static_cast<void>(m_down.erase(virtualKey));
    return false;
}

void HeldKeys::press(int virtualKey)
{
    const bool isNew = m_down.insert(virtualKey).second;
    if (!isNew || !hasLamp(virtualKey))
        return;
    if (m_toggled.erase(virtualKey) == 0)
        m_toggled.insert(virtualKey);
}
