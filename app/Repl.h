#pragma once

#include <string>

class Session;

// Reads expressions, evaluates them, prints their values. On a terminal with line editing, history that is kept in the
// profile folder, and completion of function names; an expression may go over several lines. Otherwise it reads
// standard input to its end and shows no prompts.
class Repl
{
public:
    explicit Repl(Session &session) : m_session(session) {}
    int run(); // gives an exit status

private:
    int runOnTerminal();
    int runOnStream();
    // Evaluates what is complete in the text; false when more lines are needed.
    bool evaluate(const std::u16string &text);
    bool isIncomplete(const std::u16string &text);

    Session &m_session;
    bool m_left = false;
};
