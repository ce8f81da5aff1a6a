#include "platform/KeySymbols.h"

#include "platform/VirtualKeys.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>

namespace {

struct KeyRow
{
    int virtualKey;
    std::vector<unsigned long> symbols;
};

struct PadRow
{
    int withNumLock, withoutNumLock;
    std::vector<unsigned long> symbols; // of one key
};

const PadRow padRows[] = {
    {VK_NUMPAD0, VK_INSERT, {XK_KP_0, XK_KP_Insert}},
    {VK_NUMPAD1, VK_END, {XK_KP_1, XK_KP_End}},
    {VK_NUMPAD2, VK_DOWN, {XK_KP_2, XK_KP_Down}},
    {VK_NUMPAD3, VK_NEXT, {XK_KP_3, XK_KP_Next}},
    {VK_NUMPAD4, VK_LEFT, {XK_KP_4, XK_KP_Left}},
    {VK_NUMPAD5, VK_CLEAR, {XK_KP_5, XK_KP_Begin}},
    {VK_NUMPAD6, VK_RIGHT, {XK_KP_6, XK_KP_Right}},
    {VK_NUMPAD7, VK_HOME, {XK_KP_7, XK_KP_Home}},
    {VK_NUMPAD8, VK_UP, {XK_KP_8, XK_KP_Up}},
    {VK_NUMPAD9, VK_PRIOR, {XK_KP_9, XK_KP_Prior}},
    {VK_DECIMAL, VK_DELETE, {XK_KP_Decimal, XK_KP_Delete}},
};

// Digits, letters and function keys follow a rule and are not here.
const KeyRow keyRows[] = {
    {VK_CANCEL, {XK_Cancel, XK_Break}},
    {VK_BACK, {XK_BackSpace}},
    {VK_TAB, {XK_Tab, XK_ISO_Left_Tab}},
    {VK_CLEAR, {XK_Clear}},
    {VK_RETURN, {XK_Return, XK_KP_Enter}},
    {VK_SHIFT, {XK_Shift_L, XK_Shift_R}},
    {VK_CONTROL, {XK_Control_L, XK_Control_R}},
    {VK_MENU, {XK_Alt_L, XK_Alt_R, XK_ISO_Level3_Shift}},
    {VK_PAUSE, {XK_Pause}},
    {VK_CAPITAL, {XK_Caps_Lock}},
    {VK_HANGUL, {XK_Hangul, XK_Kana_Lock}},
    {VK_HANJA, {XK_Hangul_Hanja, XK_Kanji}},
    {VK_ESCAPE, {XK_Escape}},
    {VK_CONVERT, {XK_Henkan}},
    {VK_NONCONVERT, {XK_Muhenkan}},
    {VK_MODECHANGE, {XK_Mode_switch}},
    {VK_SPACE, {XK_space}},
    {VK_PRIOR, {XK_Prior}},
    {VK_NEXT, {XK_Next}},
    {VK_END, {XK_End}},
    {VK_HOME, {XK_Home}},
    {VK_LEFT, {XK_Left}},
    {VK_UP, {XK_Up}},
    {VK_RIGHT, {XK_Right}},
    {VK_DOWN, {XK_Down}},
    {VK_SELECT, {XK_Select}},
    {VK_EXECUTE, {XK_Execute}},
    {VK_SNAPSHOT, {XK_Print, XK_Sys_Req}},
    {VK_INSERT, {XK_Insert}},
    {VK_DELETE, {XK_Delete}},
    {VK_HELP, {XK_Help}},
    {VK_LWIN, {XK_Super_L}},
    {VK_RWIN, {XK_Super_R}},
    {VK_APPS, {XK_Menu}},
    {VK_SLEEP, {XF86XK_Sleep}},
    {VK_MULTIPLY, {XK_KP_Multiply}},
    {VK_ADD, {XK_KP_Add}},
    {VK_SEPARATOR, {XK_KP_Separator}},
    {VK_SUBTRACT, {XK_KP_Subtract}},
    {VK_DIVIDE, {XK_KP_Divide}},
    {VK_NUMLOCK, {XK_Num_Lock}},
    {VK_SCROLL, {XK_Scroll_Lock}},
    {VK_LSHIFT, {XK_Shift_L}},
    {VK_RSHIFT, {XK_Shift_R}},
    {VK_LCONTROL, {XK_Control_L}},
    {VK_RCONTROL, {XK_Control_R}},
    {VK_LMENU, {XK_Alt_L}},
    {VK_RMENU, {XK_Alt_R, XK_ISO_Level3_Shift}},
    {VK_BROWSER_BACK, {XF86XK_Back}},
    {VK_BROWSER_FORWARD, {XF86XK_Forward}},
    {VK_BROWSER_REFRESH, {XF86XK_Refresh, XF86XK_Reload}},
    {VK_BROWSER_STOP, {XF86XK_Stop}},
    {VK_BROWSER_SEARCH, {XF86XK_Search}},
    {VK_BROWSER_FAVORITES, {XF86XK_Favorites}},
    {VK_BROWSER_HOME, {XF86XK_HomePage}},
    {VK_VOLUME_MUTE, {XF86XK_AudioMute}},
    {VK_VOLUME_DOWN, {XF86XK_AudioLowerVolume}},
    {VK_VOLUME_UP, {XF86XK_AudioRaiseVolume}},
    {VK_MEDIA_NEXT_TRACK, {XF86XK_AudioNext}},
    {VK_MEDIA_PREV_TRACK, {XF86XK_AudioPrev}},
    {VK_MEDIA_STOP, {XF86XK_AudioStop}},
    {VK_MEDIA_PLAY_PAUSE, {XF86XK_AudioPlay, XF86XK_AudioPause}},
    {VK_LAUNCH_MAIL, {XF86XK_Mail}},
    {VK_LAUNCH_MEDIA_SELECT, {XF86XK_AudioMedia}},
    {VK_LAUNCH_APP1, {XF86XK_Launch0, XF86XK_Explorer}},
    {VK_LAUNCH_APP2, {XF86XK_Launch1, XF86XK_Calculator}},
    {VK_OEM_1, {XK_semicolon}},
    {VK_OEM_PLUS, {XK_equal, XK_plus}},
    {VK_OEM_COMMA, {XK_comma}},
    {VK_OEM_MINUS, {XK_minus}},
    {VK_OEM_PERIOD, {XK_period}},
    {VK_OEM_2, {XK_slash}},
    {VK_OEM_3, {XK_grave}},
    {VK_OEM_4, {XK_bracketleft}},
    {VK_OEM_5, {XK_backslash}},
    {VK_OEM_6, {XK_bracketright}},
    {VK_OEM_7, {XK_apostrophe}},
    {VK_OEM_102, {XK_less}},
};

unsigned long offset(unsigned long first, int virtualKey, int firstVirtualKey)
{
    return first + static_cast<unsigned long>(virtualKey - firstVirtualKey);
}

bool isBetween(int number, int least, int most)
{
    return number >= least && number <= most;
}

std::vector<unsigned long> symbolsOfRow(int virtualKey)
{
    for (const KeyRow &row : keyRows)
        if (row.virtualKey == virtualKey)
            return row.symbols;
    return {};
}

} // namespace

std::vector<unsigned long> keySymbolsOf(int virtualKey, NumLock numLock)
{
    if (isBetween(virtualKey, '0', '9'))
        return {offset(XK_0, virtualKey, '0')};
    if (isBetween(virtualKey, 'A', 'Z'))
        return {offset(XK_a, virtualKey, 'A')};
    if (isBetween(virtualKey, VK_F1, VK_F24))
        return {offset(XK_F1, virtualKey, VK_F1)};
    std::vector<unsigned long> symbols = symbolsOfRow(virtualKey);
    for (const PadRow &row : padRows)
        if (virtualKey == (numLock == NumLock::On ? row.withNumLock : row.withoutNumLock))
            symbols.insert(symbols.end(), row.symbols.begin(), row.symbols.end());
    return symbols;
}

unsigned pointerButtonOf(int virtualKey)
{
    switch (virtualKey) {
    case VK_LBUTTON:
        return 1;
    case VK_MBUTTON:
        return 2;
    case VK_RBUTTON:
        return 3;
    default:
        return 0;
    }
}

// The order in which keyboards have them.
unsigned lampOf(int virtualKey)
{
    switch (virtualKey) {
    case VK_CAPITAL:
        return 1;
    case VK_NUMLOCK:
        return 2;
    case VK_SCROLL:
        return 4;
    default:
        return 0;
    }
}
