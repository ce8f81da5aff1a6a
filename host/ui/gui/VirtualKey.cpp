#include "host/ui/gui/VirtualKey.h"

#include "platform/VirtualKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace {

struct KeyRow
{
    Qt::Key key;
    int virtualKey;
};

// Letters, digits and the function keys follow rules and are not here.
constexpr KeyRow keyRows[] = {
    {Qt::Key_Cancel, VK_CANCEL},    {Qt::Key_Backspace, VK_BACK},     {Qt::Key_Tab, VK_TAB},
    {Qt::Key_Backtab, VK_TAB},      {Qt::Key_Clear, VK_CLEAR},        {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN},     {Qt::Key_Shift, VK_SHIFT},        {Qt::Key_Control, VK_CONTROL},
    {Qt::Key_Alt, VK_MENU},         {Qt::Key_AltGr, VK_MENU},         {Qt::Key_Pause, VK_PAUSE},
    {Qt::Key_CapsLock, VK_CAPITAL}, {Qt::Key_Escape, VK_ESCAPE},      {Qt::Key_Space, VK_SPACE},
    {Qt::Key_PageUp, VK_PRIOR},     {Qt::Key_PageDown, VK_NEXT},      {Qt::Key_End, VK_END},
    {Qt::Key_Home, VK_HOME},        {Qt::Key_Left, VK_LEFT},          {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},      {Qt::Key_Down, VK_DOWN},          {Qt::Key_Select, VK_SELECT},
    {Qt::Key_Execute, VK_EXECUTE},  {Qt::Key_Print, VK_SNAPSHOT},     {Qt::Key_SysReq, VK_SNAPSHOT},
    {Qt::Key_Insert, VK_INSERT},    {Qt::Key_Delete, VK_DELETE},      {Qt::Key_Help, VK_HELP},
    {Qt::Key_Meta, VK_LWIN},        {Qt::Key_Super_L, VK_LWIN},       {Qt::Key_Super_R, VK_RWIN},
    {Qt::Key_Menu, VK_APPS},        {Qt::Key_NumLock, VK_NUMLOCK},    {Qt::Key_ScrollLock, VK_SCROLL},
    {Qt::Key_Semicolon, VK_OEM_1},  {Qt::Key_Equal, VK_OEM_PLUS},     {Qt::Key_Plus, VK_OEM_PLUS},
    {Qt::Key_Comma, VK_OEM_COMMA},  {Qt::Key_Minus, VK_OEM_MINUS},    {Qt::Key_Period, VK_OEM_PERIOD},
    {Qt::Key_Slash, VK_OEM_2},      {Qt::Key_QuoteLeft, VK_OEM_3},    {Qt::Key_BracketLeft, VK_OEM_4},
    {Qt::Key_Backslash, VK_OEM_5},  {Qt::Key_BracketRight, VK_OEM_6}, {Qt::Key_Apostrophe, VK_OEM_7},
    {Qt::Key_Less, VK_OEM_102},
};

// What the number pad's keys write has codes of its own.
constexpr KeyRow padRows[] = {
    {Qt::Key_Asterisk, VK_MULTIPLY}, {Qt::Key_Plus, VK_ADD},       {Qt::Key_Comma, VK_SEPARATOR},
    {Qt::Key_Minus, VK_SUBTRACT},    {Qt::Key_Period, VK_DECIMAL}, {Qt::Key_Slash, VK_DIVIDE},
};

bool isBetween(int key, Qt::Key least, Qt::Key most)
{
    return key >= least && key <= most;
}

template <std::size_t Count> int find(const KeyRow (&rows)[Count], int key)
{
    const auto *row = std::find_if(std::begin(rows), std::end(rows), [key](const KeyRow &r) { return r.key == key; });
    return row != std::end(rows) ? row->virtualKey : 0;
}

int padKeyOf(int key)
{
    return isBetween(key, Qt::Key_0, Qt::Key_9) ? VK_NUMPAD0 + (key - Qt::Key_0) : find(padRows, key);
}

} // namespace

int virtualKeyOf(const QKeyEvent &event)
{
    const int key = event.key();
    if ((event.modifiers() & Qt::KeypadModifier) != 0)
        if (const int padKey = padKeyOf(key); padKey != 0)
            return padKey;
    if (isBetween(key, Qt::Key_0, Qt::Key_9) || isBetween(key, Qt::Key_A, Qt::Key_Z))
        return key; // the same numbers
    if (isBetween(key, Qt::Key_F1, Qt::Key_F24))
        return VK_F1 + (key - Qt::Key_F1);
    return find(keyRows, key);
}
