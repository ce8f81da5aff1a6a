#pragma once

#include <QString>

#include <memory>
#include <optional>

namespace lisp {
class Machine;
}

// Line editing on the terminal: history in a file, TAB completes names of functions.
class LineEditor
{
public:
    enum class Prompt { First, Rest };

    LineEditor(lisp::Machine &machine, const QString &historyFile);
    ~LineEditor();

    // The next line with its newline; nothing at the end of the input. A null string means Ctrl-C: what was typed
    // before is to be forgotten.
    std::optional<QString> readLine(Prompt prompt);
    void remember(const QString &entry);

private:
    struct State;
    std::unique_ptr<State> m_state;
};
