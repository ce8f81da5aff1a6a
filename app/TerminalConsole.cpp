#include "app/TerminalConsole.h"

#include "app/CommandLine.h"
#include "app/system/Process.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr qsizetype PendingLimit = qsizetype{64} * 1024;

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
    m_pending += m_encoder(viewOf(text));
    m_atLineStart = text.back() == u'\n';
    if (m_isTerminal || m_pending.size() >= PendingLimit)
        flush();
}

void TerminalConsole::startFreshLine()
{
    if (!m_atLineStart)
        write(u"\n");
}

void TerminalConsole::flush()
{
    std::fwrite(m_pending.constData(), 1, static_cast<std::size_t>(m_pending.size()), stdout);
    std::fflush(stdout);
    if (std::ferror(stdout) && isPipe(stdout))
        endWithoutReader();
    m_pending.clear();
}

void TerminalConsole::writeError(std::u16string_view text)
{
    flush();
    const QByteArray bytes = viewOf(text).toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
}
