#include "host/ui/gui/CommandRunner.h"

#include "host/interpreter/Printer.h"
#include "host/interpreter/Reader.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/kernel/Document.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

using lisp::LispError;
using lisp::Value;

namespace {

const QString readyPrompt = QStringLiteral("Command: ");
const QString unfinishedPrompt = QStringLiteral("(_> ");
constexpr std::u16string_view commandPrefix = u"C:";

} // namespace

CommandRunner::CommandRunner(WindowInterface &interface, Document &document)
    : m_interface(interface), m_document(document)
{
    MainWindow &window = interface.window();
    document.machine().setConsole(&interface);
    document.machine().setPulse([&interface] {
        if (!interface.isIdle()) // picks of a person who is being asked take no others in between
            interface.pulse();
    });
    window.commandPanel().setCompletions([this] { return names(); });
    connect(&window.commandPanel(), &CommandPanel::entered, this, &CommandRunner::runTyped);
    connect(&window, &MainWindow::programChosen, this, &CommandRunner::loadProgram);
    connect(&window, &MainWindow::commandChosen, this, &CommandRunner::runCommand);
    connect(&window, &MainWindow::closing, this, &CommandRunner::close);
    connect(&window, &MainWindow::escapePressed, this, [this] {
        if (!m_interface.isRunning()) {
            m_typed.clear();
            showPrompt();
        }
    });
    showPrompt();
}

CommandRunner::~CommandRunner()
{
    m_document.machine().setPulse({});
    m_document.machine().setConsole(nullptr);
}

void CommandRunner::showPrompt()
{
    m_interface.window().commandPanel().setPrompt(m_typed.empty() ? readyPrompt : unfinishedPrompt);
}

void CommandRunner::run(const std::function<void()> &action)
{
    m_interface.programStarted(m_document.machine());
    m_document.drawing().database().journal().nextStep(); // one line is undone in one step
    commands::CommandLine &commandLine = m_document.commandLine();
    if (!attempt(action) || !attempt([&commandLine] { commandLine.askForRest(); }))
        commandLine.cancel();
    m_interface.flush();
    Q_EMIT ended();
    m_interface.programEnded();
    m_interface.startFreshLine();
    m_interface.window().setCommands(commands());
    showPrompt();
    if (std::exchange(m_isClosing, false)) // once: the person may keep it open
        m_interface.window().close();
}

// False: it was ended by an error, which is shown, or has asked for the end.
bool CommandRunner::attempt(const std::function<void()> &action)
{
    try {
        action();
        return true;
    } catch (const LispError &error) {
        if (error.kind != LispError::Kind::Exit) {
            m_interface.startFreshLine();
            const std::u16string text = u"error: " + error.message + u'\n' + lisp::traceText(error.trace);
            m_interface.writeError(QString::fromStdU16String(text));
        }
        return false;
    }
}

void CommandRunner::runTyped(const QString &text)
{
    if (m_interface.isRunning()) // an answer to the running program
        return;
    CommandPanel &panel = m_interface.window().commandPanel();
    panel.startFreshLine();
    panel.print(m_typed.empty() ? readyPrompt : unfinishedPrompt);
    panel.print(text + u'\n', CommandPanel::Voice::Person);
    const QString trimmed = text.trimmed();
    if (!m_typed.empty() || trimmed.startsWith(u'('))
        evaluate(m_typed + text.toStdU16String() + u'\n');
    else if (trimmed.startsWith(u'!'))
        evaluate(trimmed.mid(1).toStdU16String());
    else if (!trimmed.isEmpty() || !m_lastCommand.isEmpty())
        runCommand(trimmed.isEmpty() ? m_lastCommand : trimmed);
}

// Reading has no effect but new symbols, so the text is simply read once for this question.
bool CommandRunner::isIncomplete(const std::u16string &source)
{
    lisp::Reader reader(m_document.machine().heap(), m_document.machine().symbols(), source);
    try {
        while (reader.read()) {
        }
    } catch (const LispError &) {
        return reader.endedEarly();
    }
    return false;
}

void CommandRunner::evaluate(const std::u16string &source)
{
    if (isIncomplete(source)) {
        m_typed = source;
        showPrompt();
        return;
    }
    m_typed.clear();
    run([&] {
        m_document.machine().load(source, u"", [this](Value value) {
            m_interface.startFreshLine();
            if (const std::u16string text = lisp::printed(value); !text.empty()) // the null symbol shows nothing
                m_interface.write(text + u'\n');
        });
    });
}

void CommandRunner::runCommand(const QString &name)
{
    const std::u16string function = std::u16string(commandPrefix) + name.toUpper().toStdU16String();
    const lisp::Symbol *symbol = m_document.machine().symbols().find(function);
    m_lastCommand = name;
    if (symbol && !symbol->value.isNil())
        run([&] { m_document.machine().load(u'(' + function + u')', u""); });
    else
        run([&] { m_document.commandLine().runTyped(name.toStdU16String()); });
}

// For panels, which do nothing while a program runs; what they show is read anew at its end.
void CommandRunner::giveAnswers(const QStringList &answers)
{
    if (m_interface.isRunning())
        return;
    std::vector<commands::Input> inputs;
    for (const QString &answer : answers)
        inputs.emplace_back(answer.toStdU16String());
    run([&] {
        m_document.commandLine().give(inputs);
        m_document.commandLine().cancel(); // nobody is there to answer more
    });
}

void CommandRunner::loadProgram(const QString &path)
{
    QString failure;
    const std::optional<std::u16string> source = lisp::readSourceFile(path, failure);
    if (!source) {
        m_interface.writeError(failure + u'\n');
        return;
    }
    m_interface.window().addRecentFile(QFileInfo(path).absoluteFilePath());
    m_document.machine().searchFolders().push_back(QFileInfo(path).absolutePath().toStdU16String());
    run([&] { m_document.machine().load(*source, path.toStdU16String()); });
}

QStringList CommandRunner::names() const
{
    QStringList names = commands();
    for (const lisp::Symbol &symbol : m_document.machine().symbols().all())
        if (symbol.value.isObject())
            names.append(QString::fromStdU16String(symbol.name).toLower());
    for (const commands::CommandRow &row : commands::commandTable())
        names.append(QStringView(row.name).toString());
    names.sort();
    return names;
}

QStringList CommandRunner::commands() const
{
    QStringList commands;
    for (const lisp::Symbol &symbol : m_document.machine().symbols().all())
        if (symbol.name.starts_with(commandPrefix) && symbol.value.isObject())
            commands.append(QString::fromStdU16String(symbol.name.substr(commandPrefix.size())));
    commands.sort();
    return commands;
}

// A running program is stopped first, and the window closes at its end.
void CommandRunner::close(bool &allowed)
{
    if (!m_interface.isRunning())
        return;
    allowed = false;
    m_isClosing = true;
    Q_EMIT m_interface.window().escapePressed();
}
