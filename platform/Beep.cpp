#include "platform/Beep.h"

#include "platform/LastError.h"

#include <QByteArray>
#include <QProcess>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cmath>
#include <memory>
#include <numbers>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr DWORD LowestFrequency = 37, HighestFrequency = 32767; // as Windows has it
constexpr std::uint32_t SampleRate = 44100;

BeepObserver observer;

struct Player
{
    QString program;
    QStringList arguments; // to play WAV from standard input
};

const Player players[] = {
    {QStringLiteral("paplay"), {}},
    {QStringLiteral("pw-play"), {QStringLiteral("-")}},
    {QStringLiteral("aplay"), {QStringLiteral("-q")}},
};

using Clock = std::chrono::steady_clock;

template <class Number> void appendNumber(QByteArray &bytes, Number number)
{
    number = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&number), sizeof number);
}

// A sine, one channel of 16 bits, in a RIFF file: http://soundfile.sapp.org/doc/WaveFormat/
QByteArray tone(DWORD frequency, DWORD milliseconds)
{
    constexpr double Amplitude = 8000;
    const std::uint32_t samples = SampleRate / 1000 * milliseconds;
    const std::uint32_t dataSize = samples * 2;
    QByteArray bytes("RIFF");
    appendNumber(bytes, dataSize + 36);
    bytes += "WAVEfmt ";
    appendNumber(bytes, std::uint32_t{16});
    appendNumber(bytes, std::uint16_t{1}); // PCM
    appendNumber(bytes, std::uint16_t{1}); // channels
    appendNumber(bytes, SampleRate);
    appendNumber(bytes, SampleRate * 2); // bytes a second
    appendNumber(bytes, std::uint16_t{2});
    appendNumber(bytes, std::uint16_t{16});
    bytes += "data";
    appendNumber(bytes, dataSize);
    for (std::uint32_t i = 0; i < samples; ++i) {
        const double phase = 2 * std::numbers::pi * frequency * i / SampleRate;
        appendNumber(bytes, static_cast<std::int16_t>(Amplitude * std::sin(phase)));
    }
    return bytes;
}

void signalTerminal()
{
    const int terminal = ::open("/dev/tty", O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (terminal < 0)
        return;
    [[maybe_unused]] const ssize_t written = ::write(terminal, "\a", 1);
    ::close(terminal);
}

int millisecondsUntil(Clock::time_point end)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, INT_MAX));
}

// One that is installed may be of no use, where no sound server runs for example: it ends at once then. One that still
// plays at the end is left alone, because players are late with the last of a tone; but not for long.
bool play(const Player &player, const QByteArray &wave, Clock::time_point end)
{
    static QProcess *playing = nullptr; // not ended together with this program
    constexpr unsigned Patience = 2;    // seconds beyond the tone
    const unsigned longest = static_cast<unsigned>(millisecondsUntil(end) / 1000) + Patience;
    delete std::exchange(playing, nullptr);
    auto process = std::make_unique<QProcess>();
    process->setChildProcessModifier([longest] { ::alarm(longest); });
    process->start(player.program, player.arguments);
    process->write(wave);
    process->closeWriteChannel();
    if (process->waitForFinished(millisecondsUntil(end)) || process->state() == QProcess::NotRunning)
        return process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0 &&
               process->error() != QProcess::FailedToStart;
    playing = process.release();
    return true;
}

void sound(DWORD frequency, DWORD milliseconds, Clock::time_point end)
{
    const QByteArray wave = tone(frequency, milliseconds);
    for (const Player &player : players)
        if (!QStandardPaths::findExecutable(player.program).isEmpty() && play(player, wave, end))
            return;
    signalTerminal();
}

} // namespace

BOOL Beep(DWORD frequency, DWORD milliseconds)
{
    if (frequency < LowestFrequency || frequency > HighestFrequency) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    if (observer)
        observer(frequency, milliseconds);
    sound(frequency, milliseconds, end);
    std::this_thread::sleep_until(end);
    return TRUE;
}

void setBeepObserver(BeepObserver newObserver)
{
    observer = std::move(newObserver);
}
