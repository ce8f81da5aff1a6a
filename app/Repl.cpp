#include "app/Repl.h"

#include "app/Interrupts.h"
#include "app/LineEditor.h"
#include "app/Session.h"
#include "app/system/Process.h"
#include "host/interpreter/Reader.h"
#include "host/interpreter/files/SourceFile.h"
#include "storage/ProfileFolder.h"

#include <QDir>
#include <QFile>

using lisp::LispError;
using lisp::Reader;
using lisp::Value;

int Repl::run()
{
    return isTerminal(stdin) ? runOnTerminal() : runOnStream();
}

int Repl::runOnStream()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return ExitFile;
    return m_session.evaluate({QString::fromStdU16String(lisp::decodeSource(input.readAll()))});
}

int Repl::runOnTerminal()
{
    QDir().mkpath(profileFolder());
    LineEditor editor(m_session.machine(), profileFolder() + QStringLiteral("/history"));
    KeptInterrupts interrupts; // so that Ctrl-C ends the session at no moment
    std::u16string text;
    while (!m_left) {
        m_session.console().startFreshLine();
        m_session.console().flush();
        const std::optional<QString> line =
            editor.readLine(text.empty() ? LineEditor::Prompt::First : LineEditor::Prompt::Rest);
        interrupts.forget(); // they were for what is over now
        if (!line) {
            m_session.console().write(u"\n"); // after the prompt that was left
            break;
        }
        if (line->isNull()) { // cancelled
            text.clear();
            continue;
        }
        text += line->toStdU16String();
        if (evaluate(text)) {
            editor.remember(QString::fromStdU16String(text).trimmed());
            text.clear();
        } else if (interrupts.hasInterrupted()) {
            text.clear();
        }
    }
    return ExitFine;
}

bool Repl::evaluate(const std::u16string &text)
{
    if (isIncomplete(text))
        return false;
    const InterruptScope interrupts(m_session.machine());
    try {
        m_session.machine().load(text, u"", [this](Value value) { m_session.printValue(value); });
    } catch (const LispError &error) {
        m_left = error.kind == LispError::Kind::Exit;
        if (!m_left)
            m_session.report(error);
    }
    return true;
}

// Reading has no effect but new symbols, so the text is simply read once for this question.
bool Repl::isIncomplete(const std::u16string &text)
{
    Reader reader(m_session.machine().heap(), m_session.machine().symbols(), text);
    try {
        while (reader.read()) {
        }
    } catch (const LispError &) {
        return reader.endedEarly();
    }
    return false;
}
