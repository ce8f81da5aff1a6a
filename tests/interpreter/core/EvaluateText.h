#pragma once

#include "host/interpreter/Machine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Collects what programs print.
class CollectingConsole final : public lisp::Console
{
public:
    void write(std::u16string_view text) override { m_text += text; }
    std::string text() const;

private:
    std::u16string m_text;
};

std::u16string wide(const std::string &utf8);
std::string narrow(std::u16string_view text);

// The printed value of the last expression, or "error: TEXT".
std::string evaluateText(lisp::Machine &machine, const std::string &source);
std::string evaluateText(const std::string &source); // in a new machine

struct Example
{
    const char *source;
    const char *expected; // printed value or "error: TEXT"
};
void expectAll(const std::vector<Example> &examples);
