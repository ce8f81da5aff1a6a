#pragma once

#include "host/interpreter/macro/StringExpression.h"

#include <QString>

#include <gtest/gtest.h>

// String expressions in a host of three variables.
class MacroTest : public testing::Test
{
protected:
    MacroTest()
    {
        m_environment.variable = [](std::u16string_view name) -> std::optional<std::u16string> {
            if (name == u"orthomode")
                return u"1";
            if (name == u"dimpost")
                return u"a,b,c";
            return name == u"empty" ? std::optional<std::u16string>(u"") : std::nullopt;
        };
        m_environment.environment = [](std::u16string_view name) {
            return name == u"HOME" ? std::u16string(u"/home") : std::u16string();
        };
        m_environment.date = [] { return 2448806.5; };
    }
    std::string evaluate(const std::u16string &text)
    {
        return QString::fromStdU16String(lisp::StringExpression(m_environment).evaluate(text)).toStdString();
    }

    lisp::MacroEnvironment m_environment;
};
