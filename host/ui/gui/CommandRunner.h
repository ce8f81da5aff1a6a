#pragma once

#include "host/interpreter/Machine.h"
#include "host/ui/gui/WindowInterface.h"

class Document;

// Runs what is typed in the window or chosen from its menus, in one document: LISP in parentheses, "!name" for a value,
// else a command: a c: function or one of the command line's own. An expression may go over several lines.
class CommandRunner final : public QObject
{
    Q_OBJECT

public:
    CommandRunner(WindowInterface &interface, Document &document);
    ~CommandRunner() override;

    bool isRunning() const { return m_interface.isRunning(); }
    void loadProgram(const QString &path);
    void runCommand(const QString &name);
    void giveAnswers(const QStringList &answers); // a command's name and what it is to be answered
    // Runs with errors shown and the window told; anything LISP happens in here. A command that is left running then
    // asks the person on; after an error it is cancelled.
    void run(const std::function<void()> &action);

Q_SIGNALS:
    void ended(); // what was run; the window still takes it for running, so that nothing else begins meanwhile

private:
    bool attempt(const std::function<void()> &action);
    void runTyped(const QString &text);
    void evaluate(const std::u16string &source);
    bool isIncomplete(const std::u16string &source);
    void showPrompt();
    QStringList names() const;
    QStringList commands() const;
    void close(bool &allowed);

    WindowInterface &m_interface;
    Document &m_document;
    std::u16string m_typed; // lines of an expression that is not complete yet
    QString m_lastCommand;  // that Enter alone repeats
    bool m_isClosing = false;
};
