#pragma once

#include <QObject>

#include <cstdint>
#include <set>

// Which keys and mouse buttons are down, as far as the application's windows are told: where no X server and no Windows
// can be asked, that is all there is to know. While another program has the keyboard every key is up.
//
// It is the source of the platform's key states as long as it lives, where the system has none itself. There must be an
// application.
class HeldKeys final : public QObject
{
public:
    HeldKeys();
    ~HeldKeys() override;

    // As GetKeyState gives it. Bit 0 of Caps Lock, Num Lock and Scroll Lock changes with every press that was seen;
    // whether their lamps were on at the start is not known.
    std::int16_t state(int virtualKey) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void press(int virtualKey);

    std::set<int> m_down;
    std::set<int> m_toggled;
};
