// The line editor where the system's console has editing and history of its own, which it forgets when it is closed:
// https://learn.microsoft.com/windows/console/console-readconsole-control

#include "app/LineEditor.h"

#include "app/NameCompletion.h"

#include <atomic>
#include <cstdio>
#include <string>

#include <windows.h>

namespace {

constexpr DWORD LongestLine = 8192;                   // UTF-16 units; the console takes no more at once
constexpr QChar EndOfInput(4), Tab(9), EndOfFile(26); // Ctrl-D, TAB, Ctrl-Z
constexpr ULONG WakingCharacters = 1U << 4 | 1U << 9;

std::atomic<bool> cancelled = false;

// Ctrl-C ends the line. Not every console does that by itself, so it also gets an Enter.
BOOL WINAPI cancelLine(DWORD event)
{
    if (event != CTRL_C_EVENT)
        return FALSE;
    cancelled = true;
    INPUT_RECORD enter = {};
    enter.EventType = KEY_EVENT;
    enter.Event.KeyEvent.bKeyDown = TRUE;
    enter.Event.KeyEvent.wRepeatCount = 1;
    enter.Event.KeyEvent.wVirtualKeyCode = VK_RETURN;
    enter.Event.KeyEvent.uChar.UnicodeChar = u'\r';
    DWORD written = 0;
    WriteConsoleInputW(GetStdHandle(STD_INPUT_HANDLE), &enter, 1, &written);
    return TRUE;
}

class CancelScope
{
public:
    CancelScope()
    {
        cancelled = false;
        SetConsoleCtrlHandler(cancelLine, TRUE);
    }
    ~CancelScope() { SetConsoleCtrlHandler(cancelLine, FALSE); }
    CancelScope(const CancelScope &) = delete;
    CancelScope &operator=(const CancelScope &) = delete;
};

void show(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    std::fflush(stdout);
}

// What is typed behind the beginning of a line, which stands on the screen, up to Enter or a character that wakes.
// Nothing when the console is gone.
std::optional<QString> readConsole(const QString &beginning)
{
    std::wstring buffer(LongestLine, L'\0');
    beginning.left(LongestLine / 2).toWCharArray(buffer.data());
    CONSOLE_READCONSOLE_CONTROL control = {sizeof control, static_cast<ULONG>(beginning.size()), WakingCharacters, 0};
    DWORD length = 0;
    if (!ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), buffer.data(), LongestLine, &length, &control))
        return std::nullopt;
    return QString::fromStdWString(buffer.substr(0, length));
}

} // namespace

struct LineEditor::State
{
    // The line with the name in front of the TAB completed, on the screen too.
    QString withCompletion(const QString &line, const QString &prompt) const;

    lisp::Machine &machine;
};

QString LineEditor::State::withCompletion(const QString &line, const QString &prompt) const
{
    const QString before = line.section(Tab, 0, 0);
    const NameCompletion completion = completeName(machine, before);
    if (!completion.choices.isEmpty())
        show(u'\n' + completion.choices.join(QStringLiteral("  ")) + u'\n' + prompt + before);
    show(completion.insertion);
    return before + completion.insertion;
}

LineEditor::LineEditor(lisp::Machine &machine, const QString &) : m_state(std::make_unique<State>(State{machine})) {}

LineEditor::~LineEditor() = default;

std::optional<QString> LineEditor::readLine(Prompt prompt)
{
    const CancelScope cancels;
    const QString promptText = prompt == Prompt::First ? QStringLiteral("> ") : QStringLiteral("  ");
    show(promptText);
    QString line;
    while (!line.endsWith(u'\n')) {
        const std::optional<QString> typed = readConsole(line);
        if (cancelled)
            return QString();
        if (!typed || typed->isEmpty() || typed->startsWith(EndOfInput) || typed->startsWith(EndOfFile))
            return std::nullopt;
        line = typed->contains(Tab) ? m_state->withCompletion(*typed, promptText) : *typed;
        line.remove(EndOfInput); // behind other text it says nothing
    }
    return line;
}

// The console remembers the lines itself.
void LineEditor::remember(const QString &) {}
