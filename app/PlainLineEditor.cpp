// The line editor where the system's console has editing and history of its own: lines are taken as they come.

#include "app/LineEditor.h"

#include <cstdio>
#include <iostream>
#include <string>

struct LineEditor::State
{
};

LineEditor::LineEditor(lisp::Machine &, const QString &) {}

LineEditor::~LineEditor() = default;

std::optional<QString> LineEditor::readLine(Prompt prompt)
{
    std::fputs(prompt == Prompt::First ? "> " : "  ", stdout);
    std::fflush(stdout);
    std::string line;
    if (!std::getline(std::cin, line))
        return std::nullopt;
    return QString::fromStdString(line += '\n');
}

// The console remembers the lines itself.
void LineEditor::remember(const QString &) {}
