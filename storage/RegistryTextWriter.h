#pragma once

#include "storage/RegistryText.h"

// Writes what it is told as a registry text without its first line. Every text that it writes reads back to the same.
class RegistryTextWriter final : public RegistryTextReceiver
{
public:
    explicit RegistryTextWriter(std::u16string_view lineEnd = u"\n") : m_lineEnd(lineEnd) {}

    void addKey(std::u16string_view path) override;
    void removeKey(std::u16string_view path) override;
    void setValue(std::u16string_view name, std::uint32_t type, const QByteArray &data) override;
    void removeValue(std::u16string_view name) override;

    const std::u16string &text() const { return m_text; }
    void clear() { m_text.clear(); }

private:
    void writeName(std::u16string_view name);
    void writeQuoted(std::u16string_view text);
    void writeBytes(std::uint32_t type, const QByteArray &data);

    const std::u16string_view m_lineEnd;
    std::u16string m_text;
};
