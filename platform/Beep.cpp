#include "platform/Beep.h"

#include "platform/LastError.h"

#include <QByteArray>
#include <QProcess>
#include <QStandardPaths>
#include <QtEndian>

#include <chrono>
#include <cmath>
#include <numbers>
#include <optional>
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

std::optional<Player> findPlayer()
{
    const Player players[] = {
        {QStringLiteral("paplay"), {}},
        {QStringLiteral("pw-play"), {QStringLiteral("-")}},
        {QStringLiteral("aplay"), {QStringLiteral("-q")}},
    };
    for (const Player &player : players)
        if (!QStandardPaths::findExecutable(player.program).isEmpty())
            return player;
    return std::nullopt;
}

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

void sound(DWORD frequency, DWORD milliseconds)
{
    const std::optional<Player> player = findPlayer();
    if (!player) {
        signalTerminal();
        return;
    }
    QProcess process;
    process.start(player->program, player->arguments);
    process.write(tone(frequency, milliseconds));
    process.closeWriteChannel();
    constexpr int Patience = 1000; // for the player to start and end
    if (!process.waitForFinished(static_cast<int>(milliseconds) + Patience))
        process.kill();
    process.waitForFinished();
}

} // namespace

BOOL Beep(DWORD frequency, DWORD milliseconds)
{
    if (frequency < LowestFrequency || frequency > HighestFrequency) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    if (observer)
        observer(frequency, milliseconds);
    sound(frequency, milliseconds);
    std::this_thread::sleep_until(end);
    return TRUE;
}

void setBeepObserver(BeepObserver newObserver)
{
    observer = std::move(newObserver);
}
