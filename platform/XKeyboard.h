#pragma once

#include <cstdint>
#include <memory>

// The keyboard and mouse of the X server that DISPLAY names. Its library is loaded at the first question, so that
// programs which never ask do not pay for it.
class XKeyboard
{
public:
    static XKeyboard &instance();
    ~XKeyboard();

    // As GetKeyState gives it; 0 without a server, and when it has gone.
    std::int16_t state(int virtualKey);

private:
    class Connection;

    XKeyboard();

    std::unique_ptr<Connection> m_connection;
};
