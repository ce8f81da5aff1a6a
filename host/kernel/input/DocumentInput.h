#pragma once

#include "sdk/fx/CFxUserInput.h"

class Prompter;

// The command line of a document, as modules reach it.
class DocumentInput final : public CFxUserInput
{
public:
    explicit DocumentInput(Prompter &prompter) : m_prompter(prompter) {}

    int initGet(int bits, const char16_t *keywords) override;
    int getPoint(const char16_t *prompt, const LispPoint *base, LispPoint *result, CFxString *keyword) override;

private:
    Prompter &m_prompter;
};
