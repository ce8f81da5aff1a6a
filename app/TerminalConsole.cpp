#include "app/TerminalConsole.h"

#include "app/CommandLine.h"
#include "app/system/Process.h"

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <cstdlib>

namespace {

QStringView viewOf(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// A program that prints for ever would never notice. Where a signal tells of it, the process does not come here.
[[noreturn]] void endWithoutReader()
{
    std::fputs("lisphost: nobody reads the standard output any more\n", stderr);
    std::_Exit(ExitFile);
}

} // namespace

TerminalConsole::TerminalConsole() : m_encoder(QStringEncoder::Utf8), m_isTerminal(isTerminal(stdout)) {}

TerminalConsole::~TerminalConsole()
{
    flush();
}

void TerminalConsole::write(std::u16string_view text)
{
    if (text.empty())
        return;
    const QByteArray bytes = m_encoder(viewOf(text));
    const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    m_atLineStart = text.back() == u'\n';
    const bool hasRoom = m_pending.append(view);
    if (m_isTerminal || !hasRoom)
        flush();
    if (!hasRoom && !m_pending.append(view))
        send(view);
}

void TerminalConsole::startFreshLine()
{
    if (!m_atLineStart)
        write(u"\n");
}

void TerminalConsole::flush()
{
    send(m_pending.take());
}

void TerminalConsole::send(std::string_view bytes)
{
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fflush(stdout);
    if (std::ferror(stdout) && isPipe(stdout))
        endWithoutReader();
}

void TerminalConsole::writeError(std::u16string_view text)
{
    flush();
    const QByteArray bytes = viewOf(text).toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
}
