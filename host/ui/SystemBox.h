#pragma once

#include "host/ui/AnsweredDialog.h"

#include <windows.h>

// A message box that the system shows for MessageBoxW:
// https://learn.microsoft.com/windows/win32/api/winuser/nf-winuser-messageboxw
class SystemBox final : public AnsweredDialog
{
public:
    explicit SystemBox(HWND window) : m_window(window) {}

    // Other windows have the class of a message box, too; these have its text.
    bool isMessageBox() const;

    bool isOpen() const override { return IsWindowVisible(m_window) != FALSE; }
    void describe(TranscriptEvent &event) const override;
    QString name() const override;
    bool suits(const Answer &answer) const override;
    void perform(const Answer &answer) override;
    void dismiss() override;

private:
    HWND findButton(const QString &text) const; // without mnemonic; null when there is none
    void pressEscape();

    HWND m_window;
};
