#include "app/LineEditor.h"

#include "app/NameCompletion.h"

#include <QFile>

#include <csignal>
#include <cstdio>

#include <histedit.h>
#include <unistd.h>

namespace {

constexpr int HistoryLength = 1000;

constexpr unsigned SecondsToTheNextTry = 1;

volatile std::sig_atomic_t cancelled = 0;

// A signal stops a reading that waits, not one that is about to begin: it comes again until the line has ended.
extern "C" void cancelLine(int)
{
    cancelled = 1;
    ::alarm(SecondsToTheNextTry);
}

// While it lives, Ctrl-C ends the line that is being read instead of what it does else.
class CancelScope
{
public:
    CancelScope()
    {
        cancelled = 0;
        struct sigaction action = {};
        action.sa_handler = cancelLine; // without SA_RESTART, so that reading stops
        sigaction(SIGALRM, &action, &m_alarm);
        sigaction(SIGINT, &action, &m_interrupt);
    }
    ~CancelScope()
    {
        sigaction(SIGINT, &m_interrupt, nullptr);
        if (wasCancelled())
            ::alarm(0);
        sigaction(SIGALRM, &m_alarm, nullptr);
    }
    CancelScope(const CancelScope &) = delete;
    CancelScope &operator=(const CancelScope &) = delete;

    static bool wasCancelled() { return cancelled != 0; }

private:
    struct sigaction m_interrupt = {}, m_alarm = {};
};

// A signal that ends a line fails the write that it comes into. That is of the line's echo and no program's output, so
// that standard output counts as well as before.
class EchoErrors
{
public:
    EchoErrors() : m_hasFailedBefore(std::ferror(stdout) != 0) {}
    ~EchoErrors()
    {
        if (!m_hasFailedBefore)
            std::clearerr(stdout);
    }
    EchoErrors(const EchoErrors &) = delete;
    EchoErrors &operator=(const EchoErrors &) = delete;

private:
    bool m_hasFailedBefore;
};

} // namespace

struct LineEditor::State
{
    State(lisp::Machine &lispMachine, const QString &historyPath)
        : machine(lispMachine), historyFile(QFile::encodeName(historyPath))
    {
        HistEvent event;
        entries = history_init();
        history(entries, &event, H_SETSIZE, HistoryLength);
        history(entries, &event, H_SETUNIQUE, 1);
        history(entries, &event, H_LOAD, historyFile.constData());
        editor = el_init("lisphost", stdin, stdout, stderr);
        el_set(editor, EL_CLIENTDATA, this);
        el_set(editor, EL_PROMPT, prompt);
        el_set(editor, EL_EDITOR, "emacs");
        el_set(editor, EL_HIST, history, entries);
        el_wset(editor, EL_ADDFN, L"complete-name", L"Completes a name", complete); // el_set would leak both names
        el_set(editor, EL_BIND, "^I", "complete-name", nullptr);
        el_set(editor, EL_SIGNAL, 1);
    }
    ~State()
    {
        HistEvent event;
        history(entries, &event, H_SAVE, historyFile.constData());
        el_end(editor);
        history_end(entries);
    }
    State(const State &) = delete;
    State &operator=(const State &) = delete;

    static State &of(EditLine *editLine)
    {
        void *data = nullptr;
        el_get(editLine, EL_CLIENTDATA, &data);
        return *static_cast<State *>(data);
    }
    static char *prompt(EditLine *editLine)
    {
        static char first[] = "> ", rest[] = "  ";
        return of(editLine).shown == Prompt::First ? first : rest;
    }
    static unsigned char complete(EditLine *editLine, int);

    lisp::Machine &machine;
    QByteArray historyFile;
    Prompt shown = Prompt::First;
    History *entries;
    EditLine *editor;
};

// Inserts what all names with this beginning have in common; lists them when that is nothing new.
unsigned char LineEditor::State::complete(EditLine *editLine, int)
{
    const LineInfo *line = el_line(editLine);
    const NameCompletion completion =
        completeName(of(editLine).machine, QString::fromLocal8Bit(line->buffer, line->cursor - line->buffer));
    if (!completion.insertion.isEmpty()) {
        el_insertstr(editLine, completion.insertion.toLocal8Bit().constData());
        return CC_REFRESH;
    }
    if (completion.choices.isEmpty())
        return CC_ERROR;
    std::fprintf(stdout, "\n%s\n", completion.choices.join(QStringLiteral("  ")).toLocal8Bit().constData());
    return CC_REDISPLAY;
}

LineEditor::LineEditor(lisp::Machine &machine, const QString &historyFile)
    : m_state(std::make_unique<State>(machine, historyFile))
{
}

LineEditor::~LineEditor() = default;

std::optional<QString> LineEditor::readLine(Prompt prompt)
{
    const CancelScope cancels;
    const EchoErrors echoErrors;
    m_state->shown = prompt;
    int length = 0;
    const char *line = el_gets(m_state->editor, &length);
    if (CancelScope::wasCancelled()) {
        std::fputc('\n', stdout);
        el_reset(m_state->editor);
        return QString();
    }
    if (!line || length <= 0)
        return std::nullopt;
    return QString::fromLocal8Bit(line, length);
}

void LineEditor::remember(const QString &entry)
{
    if (entry.isEmpty())
        return;
    HistEvent event;
    history(m_state->entries, &event, H_ENTER, entry.toLocal8Bit().constData());
}
