#pragma once

#include "host/drawing/FileFormat.h"
#include "host/drawing/Group.h"
#include "host/drawing/TextCodec.h"

#include <optional>
#include <string>

namespace drawing {

// Writes groups as the file would have them.
class GroupWriter
{
public:
    GroupWriter(const FileFormat &format, const TextCodec &codec) : m_format(format), m_codec(&codec) {}

    // The bytes of the groups. A value of another type than its code's is converted where that loses nothing but
    // decimals (an integer for a real, a text for a handle). None when a value cannot be written: it has another type,
    // a real is no finite number, an integer is out of the code's range.
    std::optional<std::string> bytesOf(const GroupList &groups) const;

    // Adds one group; false, and nothing of use added, when it cannot be written.
    bool append(std::string &bytes, int code, const GroupValue &value) const;
    bool appendReal(std::string &bytes, int code, double value) const;

private:
    void appendCode(std::string &bytes, int code) const;
    void appendText(std::string &bytes, int code, std::string_view value) const;
    bool appendInteger(std::string &bytes, int code, ValueKind kind, std::int64_t value) const;
    void appendBinary(std::string &bytes, int code, std::string_view value) const;
    bool isText() const { return m_format.kind == FileFormat::Kind::Text; }

    FileFormat m_format;
    const TextCodec *m_codec;
};

} // namespace drawing
