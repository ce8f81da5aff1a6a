#pragma once

#include "platform/SharedNumber.h"

// A number that all processes which use a registry folder share and change after each change of a hive. Looking at it
// costs no system call, unlike looking at a file: it stands in a small file of the folder that is mapped into memory,
// and says nothing that outlives the processes.
class RegistryNotice
{
public:
    // What was noticed. The time makes it differ once a second, for files that people change with an editor.
    struct Moment
    {
        std::uint64_t changes = 0;
        std::int64_t second = -1;

        bool operator==(const Moment &) const = default;
    };

    explicit RegistryNotice(const QString &folder) : m_path(folder + QStringLiteral("/.changes")) {}

    // Whether there may be something new since that moment, which becomes now. Always when it cannot be told.
    bool hasNews(Moment &seen);
    void announce();

private:
    bool isOpen(std::int64_t current);

    const QString m_path;
    SharedNumber m_changes;
    std::int64_t m_checkedAt = -1; // when the file was last known to be the one in memory
};
