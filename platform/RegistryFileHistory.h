#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

class QFile;

// What a hive's file has been after each of its changes. A file that is cut exactly behind a block looks whole; only
// this tells that there was more.
//
// It stands in the hive's lock file, and who writes it holds the lock. A process that is killed at any moment leaves
// the history of the file as it is or as it was before the last change. So it can be without the newest changes, but
// never takes a whole file for one that is cut. What an editor has left is no earlier file and counts as whole, except
// where exactly the last blocks were taken away.
class RegistryFileHistory
{
public:
    explicit RegistryFileHistory(const QString &file) : m_path(file + QStringLiteral(".lock")) {}

    // How many changes the file has had since it held just this; 0 when it is not known to have had any.
    std::uint64_t changesSince(const QByteArray &content) const;

    // The first `before` bytes were there, what follows is a change that was added.
    void goOn(const QByteArray &content, qsizetype before);
    // The file is going to be replaced by one with this content, and then is.
    void announce(const QByteArray &content);
    void begin(const QByteArray &content);

private:
    struct State
    {
        std::uint64_t length = 0;
        std::uint64_t sum = 0xcbf29ce484222325;

        void extendTo(const QByteArray &content, qsizetype length);
        bool operator==(const State &) const = default;
    };
    struct Header // the earlier states follow it
    {
        std::uint64_t earlierStates = 0;
        State whole;
        State next; // of the file that takes its place, if that has happened
    };

    static State stateOf(const QByteArray &content);
    static bool read(QFile &file, Header &header);
    static bool addEarlier(QFile &file, Header &header, const State &state);
    void write(const Header &header) const;

    QString m_path;
    State m_known; // of the beginning of the content that goes on
};
