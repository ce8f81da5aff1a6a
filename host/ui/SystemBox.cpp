#include "host/ui/SystemBox.h"

#include "host/kernel/input/Transcript.h"
#include "host/ui/DialogParts.h"

#include <QJsonArray>

namespace {

constexpr int TextId = 0xFFFF; // of the child with the message, in every version of Windows

QString textOf(HWND window)
{
    QString text(GetWindowTextLengthW(window), Qt::Uninitialized);
    auto *buffer = reinterpret_cast<wchar_t *>(text.data()); // it has room for the terminator
    text.truncate(GetWindowTextW(window, buffer, static_cast<int>(text.size()) + 1));
    return text;
}

bool isOfClass(HWND window, QStringView name)
{
    wchar_t text[32] = {};
    return name.compare(QString::fromWCharArray(text, GetClassNameW(window, text, 32)), Qt::CaseInsensitive) == 0;
}

QList<HWND> childrenOf(HWND window, QStringView className)
{
    QList<HWND> children;
    HWND child = nullptr;
    while ((child = FindWindowExW(window, child, nullptr, nullptr)) != nullptr)
        if (isOfClass(child, className))
            children += child;
    return children;
}

// The system's icons are shared: their handles are the same for everybody.
QString iconName(HWND box)
{
    for (HWND child : childrenOf(box, u"Static")) {
        const auto icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
        if (icon == nullptr)
            continue;
        const struct
        {
            LPCWSTR id;
            QString name;
        } icons[] = {
            {reinterpret_cast<LPCWSTR>(IDI_INFORMATION), QStringLiteral("information")},
            {reinterpret_cast<LPCWSTR>(IDI_WARNING), QStringLiteral("warning")},
            {reinterpret_cast<LPCWSTR>(IDI_ERROR), QStringLiteral("critical")},
            {reinterpret_cast<LPCWSTR>(IDI_QUESTION), QStringLiteral("question")},
        };
        for (const auto &[id, name] : icons)
            if (icon == LoadIconW(nullptr, id))
                return name;
    }
    return QStringLiteral("none");
}

// As a click: the box is told which of its buttons it was.
void press(HWND box, HWND button)
{
    const int id = GetDlgCtrlID(button);
    SendMessageW(box, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

} // namespace

bool SystemBox::isMessageBox() const
{
    return isOfClass(m_window, u"#32770") && GetDlgItem(m_window, TextId) != nullptr;
}

// The words are those of the platform library's boxes on other systems, so that a transcript is the same everywhere.
void SystemBox::describe(TranscriptEvent &event) const
{
    QJsonArray buttons;
    for (HWND button : childrenOf(m_window, u"Button"))
        buttons += withoutMnemonic(textOf(button));
    RECT inside = {};
    GetClientRect(m_window, &inside);
    event.add(u"class", QStringLiteral("QMessageBox"))
        .add(u"title", textOf(m_window))
        .add(u"text", textOf(GetDlgItem(m_window, TextId)))
        .add(u"icon", iconName(m_window))
        .add(u"buttons", buttons)
        .add(u"width", static_cast<int>(inside.right))
        .add(u"height", static_cast<int>(inside.bottom));
}

QString SystemBox::name() const
{
    return QStringLiteral("QMessageBox \"%1\"").arg(textOf(m_window));
}

bool SystemBox::suits(const Answer &answer) const
{
    return answer.kind == Answer::Kind::Escape ||
           (answer.kind == Answer::Kind::Press && findButton(answer.argument) != nullptr);
}

void SystemBox::perform(const Answer &answer)
{
    if (answer.kind == Answer::Kind::Press)
        press(m_window, findButton(answer.argument));
    else
        pressEscape();
}

void SystemBox::dismiss()
{
    pressEscape();
    if (isOpen())
        EndDialog(m_window, 0);
}

HWND SystemBox::findButton(const QString &text) const
{
    for (HWND button : childrenOf(m_window, u"Button"))
        if (withoutMnemonic(textOf(button)) == text)
            return button;
    return nullptr;
}

// Esc is the Cancel button, or OK when it is the only one, which then has the number of either. Boxes with neither do
// not heed it.
void SystemBox::pressEscape()
{
    const QList<HWND> buttons = childrenOf(m_window, u"Button");
    for (HWND button : buttons)
        if (GetDlgCtrlID(button) == IDCANCEL || (GetDlgCtrlID(button) == IDOK && buttons.size() == 1)) {
            press(m_window, button);
            return;
        }
}
