#pragma once

#include "host/commands/CommandTable.h"

#include <memory>
#include <vector>

namespace commands {

// The command line of a document. It takes one answer after the other: when no command runs, the name of one, else what
// the running command asks for. A command keeps its place between calls.
//
// With CMDECHO 0 neither prompts nor answers are shown, only complaints.
class CommandLine
{
public:
    enum class Result { Taken, Unknown, Cancelled };

    explicit CommandLine(Session &session) : m_session(session) {}
    ~CommandLine();
    CommandLine(const CommandLine &) = delete;
    CommandLine &operator=(const CommandLine &) = delete;

    // Gives a sequence of answers. An unknown name is complained about and the rest is dropped.
    Result give(const std::vector<Input> &inputs);
    Result give(const Input &input);
    // Runs a whole command that a person has typed, and asks the person what it wants to know.
    Result runTyped(const std::u16string &typed);
    Result askForRest(); // asks the person for all that a command which a program has begun still wants to know
    // Runs a whole command that asks the person, while what runs keeps waiting. Esc there ends this one alone.
    Result askInside(const CommandRow &row);
    void endRepeated();   // gives Enter to a command that would also end for another one
    void cancel();        // Esc: ends all that runs
    void forgetDrawing(); // another one is open: what commands remember is of the one before
    void showPrompt();    // of the running command, once

    bool isActive() const { return !m_running.empty(); }
    std::u16string names() const; // of the running commands, as CMDNAMES gives them
    const std::u16string &lastPrompt() const { return m_lastPrompt; }
    const SelectionWays &selectionWays() const { return m_memory.ways; } // of the last "Select objects:"

    static constexpr std::u16string_view Pause = u"\\"; // instead of an answer: a person gives it

private:
    struct Running
    {
        Running(const CommandRow &row, std::u16string name, CommandLine &line, Echo echo)
            : context(line.m_session, line.m_memory, std::move(name), echo), task(row.run(context))
        {
        }
        Context context;
        Command task;
        bool followsSelect = false; // and was not given an answer yet
        bool promptIsShown = false;
    };

    // A person has seen what was typed or answered; what comes from a program is shown.
    enum class Source { Program, Person };

    const CommandRow *rowOf(const std::u16string &typed) const; // null: no name of a command
    Result start(const std::u16string &typed, Source source);
    void begin(const CommandRow &row, std::u16string name);
    Request::Outcome offer(const Input &input, Source source = Source::Program);
    Result giveOne(const Input &input);
    enum class Standing { FirstOfSeveral, Else }; // of an answer in what a program gives at once
    void endBefore(const Input &input, Standing standing);
    Result askPerson(std::size_t kept = 0); // until there is an answer: what is refused, and a snap, is none
    Result askWhileRunning(std::size_t kept);
    void cancelAllBut(std::size_t kept); // the outermost ones go on waiting
    void runScripts();
    bool takeTyped(const std::u16string &typed); // false: an expression failed
    void finishSelecting();
    template <class Step> void proceed(Step step);
    void echo(std::u16string_view text);
    Running &running() { return *m_running.back(); }

    Session &m_session;
    Memory m_memory;
    std::vector<std::unique_ptr<Running>> m_running; // transparent ones behind those that they interrupt
    std::u16string m_lastPrompt;
    std::u16string m_lastName; // of the command that ended last in this sequence
    bool m_runsScript = false;
};

} // namespace commands
