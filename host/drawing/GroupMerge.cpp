#include "host/drawing/GroupMerge.h"

#include "host/drawing/ItemValues.h"

#include <algorithm>

namespace drawing {

namespace {

class Merge
{
public:
    Merge(std::string_view old, const FileFormat &format, const TextCodec &codec);
    std::optional<std::string> run(const GroupList &groups);

private:
    bool isSame(const Item &item, const Group &group) const { return m_values.isSame(item, group); }
    std::size_t commonEnd(const GroupList &groups, std::size_t start) const;
    bool place(const Group &group);
    std::size_t findAhead(const Group &group) const;
    bool writeReplaced(const Group &group);
    void passUntil(std::size_t item); // passes items over, but not what stands between them
    void keep();                      // the bytes of the item where it stands, and passes it
    void add(std::string_view bytes);

    std::string_view m_old;
    const FileFormat &m_format;
    ItemValues m_values;
    std::vector<Item> m_items;
    std::size_t m_item = 0;  // the next item that is not passed yet
    std::size_t m_limit = 0; // items from here on belong to the common end
    const char *m_position;  // behind the last item that was passed
    std::string m_bytes;
};

Merge::Merge(std::string_view old, const FileFormat &format, const TextCodec &codec)
    : m_old(old), m_format(format), m_values(format, codec), m_position(old.data())
{
    constexpr std::size_t BytesPerItem = 16; // about
    m_items.reserve(old.size() / BytesPerItem + 8);
    GroupReader reader(old, format, codec);
    for (Item item; reader.next(item);)
        m_items.push_back(item);
    m_bytes.reserve(old.size() + 64);
}

std::optional<std::string> Merge::run(const GroupList &groups)
{
    std::size_t i = 0;
    for (; i < groups.size() && m_item < m_items.size() && isSame(m_items[m_item], groups[i]); ++i)
        keep();
    const std::size_t end = commonEnd(groups, i);
    m_limit = m_items.size() - end;
    for (; i < groups.size() - end; ++i)
        if (!place(groups[i]))
            return std::nullopt;
    passUntil(m_limit);
    while (m_item < m_items.size())
        keep();
    add(m_old.substr(static_cast<std::size_t>(m_position - m_old.data())));
    return std::move(m_bytes);
}

// How many groups at the end are as they were.
std::size_t Merge::commonEnd(const GroupList &groups, std::size_t start) const
{
    const std::size_t most = std::min(groups.size() - start, m_items.size() - m_item);
    std::size_t count = 0;
    while (count < most && isSame(m_items[m_items.size() - 1 - count], groups[groups.size() - 1 - count]))
        ++count;
    return count;
}

bool Merge::place(const Group &group)
{
    const bool replaces = m_item < m_limit && m_items[m_item].code == group.code;
    if (replaces && !isSame(m_items[m_item], group))
        return writeReplaced(group);
    const std::size_t found = findAhead(group);
    if (found == m_limit) {
        std::string bytes;
        const bool written = m_values.writer().append(bytes, group.code, group.value);
        add(bytes);
        return written;
    }
    passUntil(found);
    keep();
    return true;
}

// The next item that the group leaves as it is; m_limit when there is none near.
std::size_t Merge::findAhead(const Group &group) const
{
    constexpr std::size_t Near = 64; // so that a long record with many changes does not take quadratic time
    const auto from = m_items.begin() + static_cast<std::ptrdiff_t>(m_item);
    const auto to = m_items.begin() + static_cast<std::ptrdiff_t>(std::min(m_limit, m_item + Near));
    const auto found = std::find_if(from, to, [&](const Item &item) { return isSame(item, group); });
    return found == to ? m_limit : static_cast<std::size_t>(found - m_items.begin());
}

bool Merge::writeReplaced(const Group &group)
{
    const Item &item = m_items[m_item];
    passUntil(m_item + 1);
    std::string bytes;
    const bool written = m_values.appendChanged(bytes, item, group);
    add(bytes);
    return written;
}

void Merge::passUntil(std::size_t item)
{
    for (; m_item < item; ++m_item) {
        const std::string_view bytes = m_items[m_item].bytes;
        add({m_position, static_cast<std::size_t>(bytes.data() - m_position)});
        m_position = bytes.data() + bytes.size();
    }
}

void Merge::keep()
{
    const std::string_view bytes = m_items[m_item].bytes;
    passUntil(m_item + 1);
    add(bytes);
}

// The last line of a file may lack its end.
void Merge::add(std::string_view bytes)
{
    if (bytes.empty())
        return;
    if (m_format.kind == FileFormat::Kind::Text && !m_bytes.empty() && m_bytes.back() != m_format.lineEndMark())
        m_bytes.append(m_format.lineEnd);
    m_bytes.append(bytes);
}

} // namespace

std::optional<std::string> merged(std::string_view old, const GroupList &groups, const FileFormat &format,
                                  const TextCodec &codec)
{
    return Merge(old, format, codec).run(groups);
}

} // namespace drawing
