#pragma once

#include "host/drawing/GroupReader.h"
#include "host/drawing/GroupWriter.h"

namespace drawing {

// Compares values of a record with new ones, and writes these in their place.
class ItemValues
{
public:
    ItemValues(const FileFormat &format, const TextCodec &codec)
        : m_format(format), m_codec(codec), m_writer(format, codec)
    {
    }

    bool isSame(const Item &item, const Group &group) const;

    // Adds the group where the item was; the coordinates of a point that are as before keep their bytes. False when the
    // value cannot be written (see GroupWriter).
    bool appendChanged(std::string &bytes, const Item &item, const Group &group) const;

    const GroupWriter &writer() const { return m_writer; }

private:
    bool isSameText(const Item &item, const GroupValue &value) const;

    const FileFormat &m_format;
    const TextCodec &m_codec;
    GroupWriter m_writer;
};

} // namespace drawing
