#pragma once

#include <QString>

#include <cstdint>

class QWidget;

// Shows a message in the host's message box and gives the number of the pressed button as Windows counts them (1 OK,
// 2 Cancel, 3 Abort, 4 Retry, 5 Ignore, 6 Yes, 7 No, 8 Close, 9 Help), 0 when there was none.
//
// The code is the sum of a buttons value, an icon value and a default-button value, as for MessageBoxW
// (https://learn.microsoft.com/windows/win32/api/winuser/nf-winuser-messageboxw). Only these three are understood: with
// any other flag no box appears and the result is 0. The default-button value has no effect: the host's box chooses.
// The parent is not used.
int showMessageBox(QWidget *parent, const QString &text, const QString &title, std::uint16_t code,
                   Qt::TextFormat textFormat);
