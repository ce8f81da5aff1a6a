#pragma once

#include "app/OutputBuffer.h"
#include "host/interpreter/Machine.h"

#include <QStringEncoder>

#include <string_view>

// The command line on standard output, as UTF-8. Writes are collected; flush() hands them over, and so does the end.
class TerminalConsole final : public lisp::Console
{
public:
    TerminalConsole();
    ~TerminalConsole();

    void write(std::u16string_view text) override;
    // Begins a new line unless the last one was ended.
    void startFreshLine();
    void flush();
    // On standard error, after everything written so far.
    void writeError(std::u16string_view text);

private:
    static void send(std::string_view bytes);

    OutputBuffer m_pending;
    QStringEncoder m_encoder; // keeps half a surrogate pair from one write to the next
    bool m_atLineStart = true;
    bool m_isTerminal;
};
