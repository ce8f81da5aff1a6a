#pragma once

#include "host/interpreter/LineInput.h"

class Prompter;

// Lines that a person types when a program reads the command line. Each is a request without a prompt; Esc is the end
// of the input.
class TypedLines final : public lisp::LineInput
{
public:
    explicit TypedLines(Prompter &prompter) : m_prompter(prompter) {}

private:
    std::optional<std::u16string> fetchLine() override;

    Prompter &m_prompter;
};
