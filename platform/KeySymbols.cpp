#include "platform/KeySymbols.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>

namespace {

struct KeyRow
{
    int virtualKey;
    std::vector<unsigned long> symbols;
};

// Digits, letters, function keys and the number pad's digits follow a rule and are not here.
const KeyRow keyRows[] = {
    {0x03, {XK_Cancel, XK_Break}},
    {0x08, {XK_BackSpace}},
    {0x09, {XK_Tab, XK_ISO_Left_Tab}},
    {0x0C, {XK_Clear, XK_KP_Begin}},
    {0x0D, {XK_Return, XK_KP_Enter}},
    {0x10, {XK_Shift_L, XK_Shift_R}},
    {0x11, {XK_Control_L, XK_Control_R}},
    {0x12, {XK_Alt_L, XK_Alt_R, XK_ISO_Level3_Shift}},
    {0x13, {XK_Pause}},
    {0x14, {XK_Caps_Lock}},
    {0x15, {XK_Hangul, XK_Kana_Lock}},
    {0x19, {XK_Hangul_Hanja, XK_Kanji}},
    {0x1B, {XK_Escape}},
    {0x1C, {XK_Henkan}},
    {0x1D, {XK_Muhenkan}},
    {0x1F, {XK_Mode_switch}},
    {0x20, {XK_space}},
    {0x21, {XK_Prior, XK_KP_Prior}},
    {0x22, {XK_Next, XK_KP_Next}},
    {0x23, {XK_End, XK_KP_End}},
    {0x24, {XK_Home, XK_KP_Home}},
    {0x25, {XK_Left, XK_KP_Left}},
    {0x26, {XK_Up, XK_KP_Up}},
    {0x27, {XK_Right, XK_KP_Right}},
    {0x28, {XK_Down, XK_KP_Down}},
    {0x29, {XK_Select}},
    {0x2B, {XK_Execute}},
    {0x2C, {XK_Print, XK_Sys_Req}},
    {0x2D, {XK_Insert, XK_KP_Insert}},
    {0x2E, {XK_Delete, XK_KP_Delete}},
    {0x2F, {XK_Help}},
    {0x5B, {XK_Super_L}},
    {0x5C, {XK_Super_R}},
    {0x5D, {XK_Menu}},
    {0x5F, {XF86XK_Sleep}},
    {0x6A, {XK_KP_Multiply}},
    {0x6B, {XK_KP_Add}},
    {0x6C, {XK_KP_Separator}},
    {0x6D, {XK_KP_Subtract}},
    {0x6E, {XK_KP_Decimal, XK_KP_Delete}},
    {0x6F, {XK_KP_Divide}},
    {0x90, {XK_Num_Lock}},
    {0x91, {XK_Scroll_Lock}},
    {0xA0, {XK_Shift_L}},
    {0xA1, {XK_Shift_R}},
    {0xA2, {XK_Control_L}},
    {0xA3, {XK_Control_R}},
    {0xA4, {XK_Alt_L}},
    {0xA5, {XK_Alt_R, XK_ISO_Level3_Shift}},
    {0xA6, {XF86XK_Back}},
    {0xA7, {XF86XK_Forward}},
    {0xA8, {XF86XK_Refresh, XF86XK_Reload}},
    {0xA9, {XF86XK_Stop}},
    {0xAA, {XF86XK_Search}},
    {0xAB, {XF86XK_Favorites}},
    {0xAC, {XF86XK_HomePage}},
    {0xAD, {XF86XK_AudioMute}},
    {0xAE, {XF86XK_AudioLowerVolume}},
    {0xAF, {XF86XK_AudioRaiseVolume}},
    {0xB0, {XF86XK_AudioNext}},
    {0xB1, {XF86XK_AudioPrev}},
    {0xB2, {XF86XK_AudioStop}},
    {0xB3, {XF86XK_AudioPlay, XF86XK_AudioPause}},
    {0xB4, {XF86XK_Mail}},
    {0xB5, {XF86XK_AudioMedia}},
    {0xB6, {XF86XK_Launch0, XF86XK_Explorer}},
    {0xB7, {XF86XK_Launch1, XF86XK_Calculator}},
    {0xBA, {XK_semicolon}},
    {0xBB, {XK_equal, XK_plus}},
    {0xBC, {XK_comma}},
    {0xBD, {XK_minus}},
    {0xBE, {XK_period}},
    {0xBF, {XK_slash}},
    {0xC0, {XK_grave}},
    {0xDB, {XK_bracketleft}},
    {0xDC, {XK_backslash}},
    {0xDD, {XK_bracketright}},
    {0xDE, {XK_apostrophe}},
    {0xE2, {XK_less}},
};

unsigned long offset(unsigned long first, int virtualKey, int firstVirtualKey)
{
    return first + static_cast<unsigned long>(virtualKey - firstVirtualKey);
}

bool isBetween(int number, int least, int most)
{
    return number >= least && number <= most;
}

// With Num Lock off the keys of the number pad are others.
unsigned long padSymbol(int digit)
{
    constexpr unsigned long symbols[] = {XK_KP_Insert, XK_KP_End,   XK_KP_Down, XK_KP_Next, XK_KP_Left,
                                         XK_KP_Begin,  XK_KP_Right, XK_KP_Home, XK_KP_Up,   XK_KP_Prior};
    return symbols[digit];
}

} // namespace

std::vector<unsigned long> keySymbolsOf(int virtualKey)
{
    if (isBetween(virtualKey, '0', '9'))
        return {offset(XK_0, virtualKey, '0')};
    if (isBetween(virtualKey, 'A', 'Z'))
        return {offset(XK_a, virtualKey, 'A')};
    if (isBetween(virtualKey, 0x60, 0x69))
        return {offset(XK_KP_0, virtualKey, 0x60), padSymbol(virtualKey - 0x60)};
    if (isBetween(virtualKey, 0x70, 0x87))
        return {offset(XK_F1, virtualKey, 0x70)};
    for (const KeyRow &row : keyRows)
        if (row.virtualKey == virtualKey)
            return row.symbols;
    return {};
}

unsigned pointerButtonOf(int virtualKey)
{
    switch (virtualKey) {
    case 0x01: // left
        return 1;
    case 0x04: // middle
        return 2;
    case 0x02: // right
        return 3;
    default:
        return 0;
    }
}

// The order in which keyboards have them.
unsigned lampOf(int virtualKey)
{
    switch (virtualKey) {
    case 0x14: // Caps Lock
        return 1;
    case 0x90: // Num Lock
        return 2;
    case 0x91: // Scroll Lock
        return 4;
    default:
        return 0;
    }
}
