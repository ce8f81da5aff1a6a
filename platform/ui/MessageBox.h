#pragma once

#include "platform/WindowsTypes.h"

#ifndef _WIN32

// What MessageBoxW understands, with Windows' own numbers:
// https://learn.microsoft.com/windows/win32/api/winuser/nf-winuser-messageboxw
inline constexpr UINT MB_OK = 0x0;
inline constexpr UINT MB_OKCANCEL = 0x1;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x2;
inline constexpr UINT MB_YESNOCANCEL = 0x3;
inline constexpr UINT MB_YESNO = 0x4;
inline constexpr UINT MB_RETRYCANCEL = 0x5;
inline constexpr UINT MB_CANCELTRYCONTINUE = 0x6;
inline constexpr UINT MB_TYPEMASK = 0xF;

inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_ICONMASK = 0xF0;

inline constexpr UINT MB_DEFBUTTON1 = 0x000;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;
inline constexpr UINT MB_DEFBUTTON3 = 0x200;
inline constexpr UINT MB_DEFBUTTON4 = 0x300;
inline constexpr UINT MB_DEFMASK = 0xF00;

inline constexpr UINT MB_APPLMODAL = 0x0000;   // nothing else of the owner's can be used meanwhile
inline constexpr UINT MB_SYSTEMMODAL = 0x1000; // likewise, and the box stays on top
inline constexpr UINT MB_TASKMODAL = 0x2000;   // no window of the program can be used meanwhile

inline constexpr UINT MB_HELP = 0x4000; // one more button, which asks the owner for help and leaves the box open
inline constexpr UINT MB_NOFOCUS = 0x8000;
inline constexpr UINT MB_SETFOREGROUND = 0x10000;
inline constexpr UINT MB_DEFAULT_DESKTOP_ONLY = 0x20000; // no meaning here
inline constexpr UINT MB_TOPMOST = 0x40000;
inline constexpr UINT MB_RIGHT = 0x80000; // text at the right
inline constexpr UINT MB_RTLREADING = 0x100000;
inline constexpr UINT MB_SERVICE_NOTIFICATION = 0x200000; // only without an owner

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDTRYAGAIN = 10;
inline constexpr int IDCONTINUE = 11;

// The program's active window; null when another program has the focus. The host's windows are up afterwards, if it has
// any: it may make them only when somebody asks for its main window.
HWND GetActiveWindow();

// Shows a plain text until the user presses a button, and gives its ID. Esc and the close button are the Cancel button,
// or OK when it is the only one; boxes with neither cannot be closed by them. Without a caption (null) it says "Error".
// 0, with the last error set, for a code that means nothing, or where there are no windows.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

#endif
