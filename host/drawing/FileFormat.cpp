#include "host/drawing/FileFormat.h"

#include "host/drawing/GroupCursor.h"

namespace drawing {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

FileFormat::Kind binaryKind(std::string_view groups)
{
    // The first group is a 0 with "SECTION" or a comment, 999. A short code 0 is directly followed by a letter.
    const bool isLong = groups.size() >= 2 && (groups.starts_with(std::string_view("\0\0", 2)) ||
                                               groups.starts_with(std::string_view("\xE7\x03", 2)));
    return isLong ? FileFormat::Kind::Binary : FileFormat::Kind::BinaryShortCodes;
}

// As the first code that has room for padding is written.
FileFormat::Codes codesOf(std::string_view bytes, const FileFormat &format)
{
    constexpr int LeastWideCode = 100;
    TextGroups groups(bytes, format);
    for (RawGroup group; groups.next(group);)
        if (group.code < LeastWideCode)
            return group.bytes.starts_with(' ') ? FileFormat::Codes::Padded : FileFormat::Codes::Bare;
    return FileFormat::Codes::Padded;
}

} // namespace

FileFormat detectFormat(std::string_view bytes)
{
    FileFormat format;
    const std::string_view groups = bytes.substr(groupsBegin(bytes));
    if (bytes.starts_with(BinarySentinel)) {
        format.kind = binaryKind(groups);
        return format;
    }
    if (const std::size_t feed = groups.find('\n'); feed != std::string_view::npos)
        format.lineEnd = feed > 0 && groups[feed - 1] == '\r' ? "\r\n" : "\n";
    else if (groups.find('\r') != std::string_view::npos)
        format.lineEnd = "\r";
    format.codes = codesOf(groups, format);
    return format;
}

std::size_t groupsBegin(std::string_view bytes)
{
    if (bytes.starts_with(BinarySentinel))
        return BinarySentinel.size();
    return bytes.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
}

} // namespace drawing
