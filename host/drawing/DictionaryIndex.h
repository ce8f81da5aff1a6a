#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/Record.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace drawing {

class Database;

struct DictionaryEntry
{
    std::u16string name;
    Handle object;
    bool operator==(const DictionaryEntry &) const = default;
};

// What stands in dictionaries. Each is read when somebody asks for it, and again only after another change than a new
// entry behind its last.
class DictionaryIndex
{
public:
    explicit DictionaryIndex(const Database &database) : m_database(database) {}

    // In its order; valid until the drawing is changed.
    const std::vector<DictionaryEntry> &entries(RecordId dictionary) { return of(dictionary).entries; }
    // Among the entries the place of the first with the name, in any case.
    std::optional<std::size_t> placeOf(RecordId dictionary, std::u16string_view name);

    // Whether new entries come behind everything that the dictionary has: see Database::append().
    bool growsAtEnd(RecordId dictionary) { return of(dictionary).growsAtEnd; }
    // It has grown so since the latest look at it, and nothing else has changed.
    void noteGrown(RecordId dictionary);

private:
    struct Content
    {
        std::vector<DictionaryEntry> entries;
        std::unordered_map<std::u16string, std::size_t> places; // by their names, folded
        std::size_t bytesRead = 0;
        bool growsAtEnd = false;
    };

    Content &of(RecordId dictionary);
    void forgetChanged();
    void read(RecordId dictionary, Content &content) const;

    const Database &m_database;
    std::unordered_map<RecordId, Content> m_contents;
    std::uint64_t m_changeCount = 0;
};

} // namespace drawing
