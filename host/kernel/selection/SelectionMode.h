#pragma once

#include <string_view>

// The first argument of ssget: "X", "_W", "_:L", "_+.:E:S".
class SelectionMode
{
public:
    enum class Kind {
        Interactive,
        Everything,
        AllThawed,
        Window,
        Crossing,
        WindowPolygon,
        CrossingPolygon,
        Fence,
        Last,
        Previous,
        Implied
    };

    SelectionMode() = default;
    // Raises "bad SSGET mode string" for what is none. Modifiers that only change how a person is asked are taken.
    explicit SelectionMode(std::u16string_view text);

    Kind kind() const { return m_kind; }
    bool crosses() const { return m_kind == Kind::Crossing || m_kind == Kind::CrossingPolygon; }
    bool takesOne() const { return m_takesOne; }           // :S
    bool refusesLocked() const { return m_refusesLocked; } // :L

private:
    void take(char16_t modifier);

    Kind m_kind = Kind::Interactive;
    bool m_takesOne = false, m_refusesLocked = false;
};
