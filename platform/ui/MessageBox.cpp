#include "platform/ui/MessageBox.h"

#include "platform/LastError.h"
#include "platform/ui/NativeMessageBox.h"
#include "sdk/fx/CFxSystemServices.h"

#include <QApplication>

HWND GetActiveWindow()
{
    if (CFxSystemServices *services = GetFxSystemServices())
        services->mainWindow();
    return qApp != nullptr ? QApplication::activeWindow() : nullptr;
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    if (qobject_cast<QApplication *>(QCoreApplication::instance()) == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    if (!NativeMessageBox::understands(type) || (owner != nullptr && (type & MB_SERVICE_NOTIFICATION) != 0)) {
        SetLastError(ERROR_INVALID_MSGBOX_STYLE);
        return 0;
    }
    NativeMessageBox box(static_cast<QWidget *>(owner), type);
    box.setText(QStringView(text).toString());
    box.setWindowTitle(caption != nullptr ? QStringView(caption).toString() : QStringLiteral("Error"));
    return box.run();
}
