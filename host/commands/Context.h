#pragma once

#include "host/commands/Memory.h"
#include "host/commands/Questions.h"
#include "host/commands/Session.h"
#include "host/commands/Task.h"

#include <utility>

namespace commands {

enum class Echo { Off, On };

// What a running command works with.
class Context
{
public:
    Context(Session &session, Memory &memory, std::u16string name, Echo echo)
        : m_session(session), m_memory(memory), m_questions(session), m_name(std::move(name)), m_echo(echo)
    {
    }
    Context(const Context &) = delete;
    Context &operator=(const Context &) = delete;

    const std::u16string &name() const { return m_name; } // in capitals, as it was called
    Session &session() { return m_session; }
    Memory &memory() { return m_memory; }
    Questions &ask() { return m_questions; }
    drawing::Drawing &drawing() { return m_session.drawing(); }
    drawing::Database &database() { return drawing().database(); }
    drawing::SymbolTables &tables() { return drawing().tables(); }

    // A line for the person; nothing while commands are silent (CMDECHO 0).
    void say(std::u16string_view text)
    {
        if (m_echo == Echo::On)
            m_session.print(u'\n' + std::u16string(text));
    }
    Echo echo() const { return m_echo; }

    // What was selected before the command began. The first selection of the command takes it, none takes it later.
    void preselect(Selection entities) { m_preselected = std::move(entities); }
    Selection takePreselected() { return std::exchange(m_preselected, {}); }

private:
    Session &m_session;
    Memory &m_memory;
    Questions m_questions;
    std::u16string m_name;
    Echo m_echo;
    Selection m_preselected;
};

} // namespace commands
