#pragma once

#include "host/kernel/HostServices.h"
#include "host/kernel/SubstituteLispHost.h"
#include "host/kernel/variables/SystemVariables.h"
#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

// A machine with its LISP interface, where the LISP function TEST runs what a test puts into `body`.
class LispHostTest : public testing::Test, public lisp::Console
{
protected:
    LispHostTest();
    ~LispHostTest() override = default;

    // The printed value of the source's last expression, or "error: TEXT".
    std::string evaluate(const std::string &source);
    void write(std::u16string_view text) override { m_printed += text; }
    std::string printedText() const;

    lisp::Machine m_machine;
    HostServices m_services;
    SystemVariables m_variables;
    SubstituteLispHost m_host{m_machine, m_services, m_variables};
    static std::function<int()> body;

private:
    std::u16string m_printed;
};

std::string utf8(std::u16string_view text);
