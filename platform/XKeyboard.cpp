#include "platform/XKeyboard.h"

#include "platform/KeyLayout.h"
#include "platform/KeyState.h"
#include "platform/KeySymbols.h"

#include <QLibrary>

#include <algorithm>
#include <array>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>

namespace {

// The functions of libX11 that are needed, found when the library is loaded.
struct XLibrary
{
    QLibrary file{QStringLiteral("X11"), 6};
    decltype(&::XOpenDisplay) openDisplay = nullptr;
    decltype(&::XCloseDisplay) closeDisplay = nullptr;
    decltype(&::XQueryKeymap) queryKeymap = nullptr;
    decltype(&::XQueryPointer) queryPointer = nullptr;
    decltype(&::XkbKeycodeToKeysym) keycodeToKeysym = nullptr;
    decltype(&::XkbGetState) keyboardState = nullptr;
    decltype(&::XkbGetIndicatorState) indicatorState = nullptr;
    decltype(&::XDefaultRootWindow) rootWindow = nullptr;
    decltype(&::XSetIOErrorExitHandler) setExitHandler = nullptr;
    decltype(&::XSetIOErrorHandler) setErrorHandler = nullptr;

    bool load()
    {
        return resolve(openDisplay, "XOpenDisplay") && resolve(closeDisplay, "XCloseDisplay") &&
               resolve(queryKeymap, "XQueryKeymap") && resolve(queryPointer, "XQueryPointer") &&
               resolve(keycodeToKeysym, "XkbKeycodeToKeysym") && resolve(keyboardState, "XkbGetState") &&
               resolve(indicatorState, "XkbGetIndicatorState") && resolve(rootWindow, "XDefaultRootWindow") &&
               resolve(setExitHandler, "XSetIOErrorExitHandler") && resolve(setErrorHandler, "XSetIOErrorHandler");
    }

private:
    template <class Function> bool resolve(Function &function, const char *name)
    {
        function = reinterpret_cast<Function>(file.resolve(name));
        return function != nullptr;
    }
};

} // namespace

class XKeyboard::Connection
{
public:
    static std::unique_ptr<Connection> open()
    {
        auto connection = std::make_unique<Connection>();
        if (!connection->m_library.load())
            return nullptr;
        connection->m_display = connection->m_library.openDisplay(nullptr);
        if (!connection->m_display)
            return nullptr;
        // The server may go away. That must not end the program, as it would by default, nor be a message.
        connection->m_library.setErrorHandler([](Display *) { return 0; });
        connection->m_library.setExitHandler(
            connection->m_display, [](Display *, void *lost) { *static_cast<bool *>(lost) = true; },
            &connection->m_isLost);
        return connection;
    }
    Connection() = default;
    ~Connection()
    {
        if (m_display && !m_isLost)
            m_library.closeDisplay(m_display);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    std::int16_t state(int virtualKey)
    {
        if (m_isLost)
            return 0;
        const unsigned button = pointerButtonOf(virtualKey);
        const bool isDown = button != 0 ? isButtonDown(button) : isKeyDown(virtualKey);
        const std::int16_t toggled = isLampOn(virtualKey) ? KeyIsToggled : std::int16_t{0};
        return m_isLost ? std::int16_t{0} : static_cast<std::int16_t>((isDown ? KeyIsDown : 0) | toggled);
    }

private:
    bool isButtonDown(unsigned button)
    {
        Window root = 0, child = 0;
        int rootX = 0, rootY = 0, x = 0, y = 0;
        unsigned mask = 0;
        m_library.queryPointer(m_display, m_library.rootWindow(m_display), &root, &child, &rootX, &rootY, &x, &y,
                               &mask);
        return (mask & (Button1Mask << (button - 1))) != 0;
    }
    bool isKeyDown(int virtualKey)
    {
        std::array<char, 32> down{}; // a bit for each key code
        m_library.queryKeymap(m_display, down.data());
        const auto symbols = keySymbolsOf(virtualKey, isLampOn(VK_NUMLOCK) ? NumLock::On : NumLock::Off);
        const unsigned group = currentGroup();
        const auto symbolOf = [&](unsigned code, bool isShifted) { return symbol(code, group, isShifted ? 1 : 0); };
        const std::array<int, 256> characters = characterKeys(symbolOf);
        for (unsigned code = 0; code < characters.size(); ++code) {
            const bool isKey = characters[code] != 0 ? characters[code] == virtualKey
                                                     : std::ranges::count(symbols, symbolOf(code, false)) > 0;
            if (isKey && (down[code / 8] >> code % 8 & 1) != 0)
                return true;
        }
        return false;
    }
    // The layout that is chosen, of those which the keyboard has.
    unsigned currentGroup()
    {
        XkbStateRec state{};
        return m_library.keyboardState(m_display, XkbUseCoreKbd, &state) == 0 ? state.group : 0;
    }
    // Keys that are the same on all layouts have their symbols in the first alone.
    unsigned long symbol(unsigned code, unsigned group, int level)
    {
        const unsigned long own =
            m_library.keycodeToKeysym(m_display, static_cast<KeyCode>(code), static_cast<int>(group), level);
        return own != 0 || group == 0 ? own : symbol(code, 0, level);
    }
    bool isLampOn(int virtualKey)
    {
        const unsigned lamp = lampOf(virtualKey);
        unsigned lamps = 0;
        return lamp != 0 && m_library.indicatorState(m_display, XkbUseCoreKbd, &lamps) == 0 && (lamps & lamp) != 0;
    }

    XLibrary m_library;
    Display *m_display = nullptr;
    bool m_isLost = false;
};

XKeyboard::XKeyboard() : m_connection(Connection::open()) {}

XKeyboard::~XKeyboard() = default;

XKeyboard &XKeyboard::instance()
{
    static XKeyboard keyboard;
    return keyboard;
}

std::int16_t XKeyboard::state(int virtualKey)
{
    return m_connection ? m_connection->state(virtualKey) : std::int16_t{0};
}
