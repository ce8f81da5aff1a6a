#include "host/ui/gui/VirtualKey.h"

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
    {Qt::Key_Cancel, 0x03},      {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},          {Qt::Key_Backtab, 0x09},
    {Qt::Key_Clear, 0x0C},       {Qt::Key_Return, 0x0D},    {Qt::Key_Enter, 0x0D},        {Qt::Key_Shift, 0x10},
    {Qt::Key_Control, 0x11},     {Qt::Key_Alt, 0x12},       {Qt::Key_AltGr, 0x12},        {Qt::Key_Pause, 0x13},
    {Qt::Key_CapsLock, 0x14},    {Qt::Key_Escape, 0x1B},    {Qt::Key_Space, 0x20},        {Qt::Key_PageUp, 0x21},
    {Qt::Key_PageDown, 0x22},    {Qt::Key_End, 0x23},       {Qt::Key_Home, 0x24},         {Qt::Key_Left, 0x25},
    {Qt::Key_Up, 0x26},          {Qt::Key_Right, 0x27},     {Qt::Key_Down, 0x28},         {Qt::Key_Select, 0x29},
    {Qt::Key_Execute, 0x2B},     {Qt::Key_Print, 0x2C},     {Qt::Key_SysReq, 0x2C},       {Qt::Key_Insert, 0x2D},
    {Qt::Key_Delete, 0x2E},      {Qt::Key_Help, 0x2F},      {Qt::Key_Meta, 0x5B},         {Qt::Key_Super_L, 0x5B},
    {Qt::Key_Super_R, 0x5C},     {Qt::Key_Menu, 0x5D},      {Qt::Key_NumLock, 0x90},      {Qt::Key_ScrollLock, 0x91},
    {Qt::Key_Semicolon, 0xBA},   {Qt::Key_Equal, 0xBB},     {Qt::Key_Plus, 0xBB},         {Qt::Key_Comma, 0xBC},
    {Qt::Key_Minus, 0xBD},       {Qt::Key_Period, 0xBE},    {Qt::Key_Slash, 0xBF},        {Qt::Key_QuoteLeft, 0xC0},
    {Qt::Key_BracketLeft, 0xDB}, {Qt::Key_Backslash, 0xDC}, {Qt::Key_BracketRight, 0xDD}, {Qt::Key_Apostrophe, 0xDE},
    {Qt::Key_Less, 0xE2},
};

// What the number pad's keys write has codes of its own.
constexpr KeyRow padRows[] = {
    {Qt::Key_Asterisk, 0x6A}, {Qt::Key_Plus, 0x6B},   {Qt::Key_Comma, 0x6C},
    {Qt::Key_Minus, 0x6D},    {Qt::Key_Period, 0x6E}, {Qt::Key_Slash, 0x6F},
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
    constexpr int PadZero = 0x60;
    return isBetween(key, Qt::Key_0, Qt::Key_9) ? PadZero + (key - Qt::Key_0) : find(padRows, key);
}

} // namespace

int virtualKeyOf(const QKeyEvent &event)
{
    constexpr int FunctionKey1 = 0x70;
    const int key = event.key();
    if ((event.modifiers() & Qt::KeypadModifier) != 0)
        if (const int padKey = padKeyOf(key); padKey != 0)
            return padKey;
    if (isBetween(key, Qt::Key_0, Qt::Key_9) || isBetween(key, Qt::Key_A, Qt::Key_Z))
        return key; // the same numbers
    if (isBetween(key, Qt::Key_F1, Qt::Key_F24))
        return FunctionKey1 + (key - Qt::Key_F1);
    return find(keyRows, key);
}
