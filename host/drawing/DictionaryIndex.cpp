#include "host/drawing/DictionaryIndex.h"

#include "host/drawing/Database.h"

namespace drawing {

std::optional<std::size_t> DictionaryIndex::placeOf(RecordId dictionary, std::u16string_view name)
{
    const Content &content = of(dictionary);
    const auto found = content.places.find(folded(name));
    return found != content.places.end() ? std::optional(found->second) : std::nullopt;
}

void DictionaryIndex::noteGrown(RecordId dictionary)
{
    read(dictionary, m_contents.at(dictionary));
    m_changeCount = m_database.journal().changeCount();
}

DictionaryIndex::Content &DictionaryIndex::of(RecordId dictionary)
{
    forgetChanged();
    const auto [content, isNew] = m_contents.try_emplace(dictionary);
    if (isNew)
        read(dictionary, content->second);
    return content->second;
}

void DictionaryIndex::forgetChanged()
{
    const auto changed = m_database.journal().changedSince(m_changeCount);
    m_changeCount = m_database.journal().changeCount();
    if (!changed)
        m_contents.clear();
    else if (!m_contents.empty())
        for (const RecordId id : *changed)
            m_contents.erase(id);
}

// What follows the bytes that were read before. A name stands before its object. Behind extended data, or the marker of
// another part of the dictionary, no entries stand, nor behind comments at the end.
void DictionaryIndex::read(RecordId dictionary, Content &content) const
{
    const FileFormat &format = m_database.format();
    const std::string_view bytes = m_database.bytes(dictionary).substr(content.bytesRead);
    GroupReader reader(bytes, format, m_database.codec());
    std::optional<std::u16string> name;
    const char *end = bytes.data();
    int markers = 0;
    bool isExtended = false;
    for (Item item; reader.next(item); end = item.bytes.data() + item.bytes.size()) {
        if (name && item.kind == ValueKind::Reference) {
            content.places.emplace(folded(*name), content.entries.size());
            content.entries.push_back({*name, {item.handle}});
        }
        name = item.code == groupcode::EntryName ? std::optional(reader.text(item)) : std::nullopt;
        markers += item.code == groupcode::Subclass ? 1 : 0;
        isExtended = isExtended || item.code == groupcode::Application;
    }
    const bool endsLine =
        format.kind != FileFormat::Kind::Text || (!bytes.empty() && bytes.back() == format.lineEndMark());
    content.growsAtEnd = endsLine && !isExtended && markers <= 1 && end == bytes.data() + bytes.size();
    content.bytesRead += bytes.size();
}

} // namespace drawing
