#pragma once

#include "app/CommandLine.h"
#include "app/TerminalConsole.h"
#include "host/kernel/Host.h"
#include "host/ui/HeadlessInterface.h"

// One run of the program: the host with its modules, one document, and the command line.
class Session
{
public:
    // Loads the modules. Raises AnswersError, TranscriptError and ModuleError.
    explicit Session(const Options &options);

    // Bounds what programs may take: time from now on, and the memory and the nesting of calls in each document. To be
    // called before there is one.
    void limit(const SandboxOptions &limits);

    // Opens the document; whatever else is called comes after it. Raises drawing::ReadError.
    void begin();

    // Both give an exit status. They stop at the first error, whose text and back trace go to standard error.
    // The programs find `arguments` as a list of strings in the variable *arguments*.
    int runFiles(const std::vector<QString> &files, const std::vector<QString> &arguments);
    int evaluate(const std::vector<QString> &expressions);

    // What is left to do after the programs: writes the drawing, and draws it, where that was asked for, unless they
    // failed. Gives the exit status.
    int finish(int status);

    // Opens a new document in place of the one that there is, whose values end with it, with the drawing and the
    // answers as at the beginning. Raises drawing::ReadError, with an empty document, when the drawing can no longer be
    // read.
    void startOver();

    lisp::Machine &machine() { return m_document->machine(); }
    TerminalConsole &console() { return m_console; }
    // Where programs print: on the console at first.
    void setOutput(lisp::Console &output);
    // What the program loads in turn may stand beside it.
    void addSearchFolderOf(const QString &file);
    // A line of the program's own on standard error.
    void warn(const QString &words) { m_host.services().warn(words); }
    // Prints a value as prin1 does, on a line of its own.
    void printValue(lisp::Value value);
    void report(const lisp::LispError &error);

private:
    void openDocument();
    void warnOfOddities();
    bool save(QString &failure) const;
    bool plot(QString &failure);
    int runFile(const QString &path);
    int statusOf(const lisp::LispError &error);
    void connectServices(const Options &options);

    QString m_drawingFile, m_saveFile, m_plotFile, m_plotLayout; // empty: none
    AnswersFile m_answers;
    std::size_t m_memoryLimit = lisp::Heap::Unlimited;
    TerminalConsole m_console;
    lisp::Console *m_output = &m_console;
    Host m_host;
    HeadlessInterface m_userInterface{m_host.services()};
    Document *m_document = nullptr;
};

// While it lives, what programs print goes elsewhere.
class OutputScope
{
public:
    OutputScope(Session &session, lisp::Console &output) : m_session(session) { session.setOutput(output); }
    ~OutputScope() { m_session.setOutput(m_session.console()); }
    OutputScope(const OutputScope &) = delete;
    OutputScope &operator=(const OutputScope &) = delete;

private:
    Session &m_session;
};
