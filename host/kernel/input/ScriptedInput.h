#pragma once

#include "host/kernel/input/UserInput.h"

struct HostServices;

// Answers from the answers file. Prompts and answers are shown on the command line and written to the transcript. A
// request without an answer is cancelled, and one line of warning says which it was.
class ScriptedInput final : public UserInput
{
public:
    explicit ScriptedInput(HostServices &services) : m_services(services) {}

    InputReply request(const InputRequest &request) override;

private:
    HostServices &m_services;
};
