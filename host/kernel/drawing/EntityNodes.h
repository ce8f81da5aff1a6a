#pragma once

#include "host/drawing/Drawing.h"
#include "host/kernel/ArgumentList.h"
#include "host/kernel/drawing/EntityData.h"

// Records of a drawing as lists of nodes: one node for each group, with the group's code, after one of -1 with the
// entity's name. Extended data begins with a node of -3.

class EntityNodes
{
public:
    EntityNodes(NodePool &pool, CallFrame &frame, TextWidth width, const drawing::Drawing &drawing)
        : m_pool(pool), m_frame(frame), m_width(width), m_drawing(drawing)
    {
    }

    // Of a record that is not erased.
    resbuf *record(drawing::RecordId record, const ApplicationFilter &filter = {});
    resbuf *tableRecord(drawing::RecordId record);

private:
    resbuf *add(int code);
    void add(const drawing::Group &group);
    void addText(int code, std::u16string_view text);
    void addSecondName(drawing::RecordId record);

    NodePool &m_pool;
    CallFrame &m_frame;
    TextWidth m_width;
    const drawing::Drawing &m_drawing;
    resbuf *m_head = nullptr;
    resbuf *m_last = nullptr;
};

// What wide nodes say. Nothing when a node is no group, or lacks its text.
std::optional<EntityRequest> entityRequest(const resbuf *nodes);
