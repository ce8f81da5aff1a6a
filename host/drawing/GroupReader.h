#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/GroupCursor.h"
#include "host/drawing/TextCodec.h"

namespace drawing {

// One value of a record as it is read. Numbers are converted already; a text is decoded when it is asked for.
// Of a point `value` is that of its first group, and `bytes` are those of all.
struct Item : RawGroup
{
    ValueKind kind = ValueKind::Text;
    int coordinates = 0;      // of ValueKind::Point: how many groups it has, whatever the point is taken for later
    std::int64_t integer = 0; // of an integer kind
    double real = 0;          // of ValueKind::Real
    Point point;              // of ValueKind::Point
    std::uint64_t handle = 0; // of ValueKind::Handle and Reference
};

// Goes over the values of a record without memory of its own. The bytes must live as long. Comments (999) are not
// given.
class GroupReader
{
public:
    GroupReader(std::string_view bytes, const FileFormat &format, const TextCodec &codec)
        : m_cursor(bytes, format), m_format(format), m_codec(&codec)
    {
    }

    bool next(Item &item)
    {
        if (!nextRaw(item))
            return false;
        readValue(item);
        return true;
    }
    // The two steps of next(), for who passes most groups over. What is not read of a point comes as a group for each
    // coordinate.
    bool nextRaw(RawGroup &group)
    {
        while (m_cursor.next(group))
            if (group.code != groupcode::Comment)
                return true;
        return false;
    }
    void readValue(Item &item); // of the group that was given last
    std::u16string text(const Item &item) const { return m_codec->decode(item.value); }
    Group group(const Item &item) const; // decoded, with memory of its own

private:
    bool takeRaw(int code, RawGroup &group); // the next group when it has this code
    void readPoint(Item &item);

    GroupCursor m_cursor;
    FileFormat m_format;
    const TextCodec *m_codec;
};

} // namespace drawing
