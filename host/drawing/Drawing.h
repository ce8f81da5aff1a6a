#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/SymbolTables.h"

namespace drawing {

// An open drawing: its records, and what finds them by name. Entities of one drawing mean nothing in another.
class Drawing
{
public:
    Drawing();                                                          // the empty one
    explicit Drawing(const QString &path, const ReadWatch &watch = {}); // throws ReadError
    explicit Drawing(std::unique_ptr<Database> database);
    Drawing(const Drawing &) = delete;
    Drawing &operator=(const Drawing &) = delete;

    Database &database() { return *m_database; }
    const Database &database() const { return *m_database; }
    SymbolTables &tables() { return m_tables; }
    const SymbolTables &tables() const { return m_tables; }

    const QString &path() const { return m_path; } // empty: it has no file yet
    void setPath(const QString &path) { m_path = path; }
    // Its file is as it is now.
    void noteSaved() { m_savedCount = m_database->journal().changeCount(); }
    bool isModified() const
    {
        return m_database->journal().changeCount() != m_savedCount;
    }                                                 // since it was read or saved
    std::uint32_t number() const { return m_number; } // from 1; no other drawing of this process has it

private:
    std::unique_ptr<Database> m_database;
    SymbolTables m_tables{*m_database};
    std::uint64_t m_savedCount = m_database->journal().changeCount();
    QString m_path;
    std::uint32_t m_number;
};

} // namespace drawing
