#include "host/kernel/drawing/EntityNodes.h"

#include "host/drawing/entities/EntityListing.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/kernel/TextFormat.h"
#include "host/kernel/ValueKind.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/drawing/TableRecords.h"

using drawing::Group;
using drawing::GroupValue;
using drawing::Handle;
using drawing::Point;
using drawing::RecordId;

resbuf *EntityNodes::add(int code)
{
    resbuf *node = m_pool.allocate(m_frame, code);
    (m_last ? m_last->rbnext : m_head) = node;
    m_last = node;
    return node;
}

void EntityNodes::addText(int code, std::u16string_view text)
{
    resbuf *node = add(code);
    if (m_width == TextWidth::Wide)
        node->resval.string = duplicateWide(text);
    else
        node->resval.narrowString = duplicateNarrow(text);
}

void EntityNodes::add(const Group &group)
{
    if (const auto *text = std::get_if<std::u16string>(&group.value)) {
        addText(group.code, *text);
    } else if (const auto *bytes = std::get_if<drawing::Bytes>(&group.value)) {
        addText(group.code, bytesText(*bytes));
    } else if (const auto *real = std::get_if<double>(&group.value)) {
        add(group.code)->resval.real = *real;
    } else if (const auto *point = std::get_if<Point>(&group.value)) {
        add(group.code)->resval.point = {point->x, point->y, point->z};
    } else if (const auto *handle = std::get_if<Handle>(&group.value)) {
        if (drawing::valueKind(group.code) != drawing::ValueKind::Reference || valueKind(group.code) == ValueKind::Text)
            return addText(group.code, handleText(*handle));
        LispName name = nodeName(m_drawing, m_drawing.database().find(*handle));
        name.words[1] = static_cast<std::int64_t>(handle->value);
        add(group.code)->resval.name = name;
    } else {
        const std::int64_t number = std::get<std::int64_t>(group.value);
        resbuf *node = add(group.code);
        if (valueKind(group.code) == ValueKind::Real)
            node->resval.real = static_cast<double>(number);
        else
            node->resval.longInteger = static_cast<std::int32_t>(number);
    }
}

void EntityNodes::addSecondName(RecordId record)
{
    if (const std::optional<RecordId> second = secondName(m_drawing, record))
        add(SecondNameCode)->resval.name = nodeName(m_drawing, *second);
}

resbuf *EntityNodes::record(RecordId record, const ApplicationFilter &filter)
{
    add(NameCode)->resval.name = nodeName(m_drawing, record);
    const drawing::EntityListing items(m_drawing, record);
    for (const drawing::ListedItem listed : items)
        add(items.group(listed));
    addSecondName(record);
    const drawing::GroupList data = filter ? drawing::extendedData(m_drawing, record, filter) : drawing::GroupList();
    if (!data.empty())
        add(ExtendedDataCode);
    for (const Group &group : data)
        add(group);
    return m_head;
}

resbuf *EntityNodes::tableRecord(RecordId record)
{
    for (const Group &group : tableRecordGroups(m_drawing, record))
        add(group);
    addSecondName(record);
    return m_head;
}

namespace {

std::optional<GroupValue> integerOf(const resbuf &node, bool isReal)
{
    return isReal ? static_cast<std::int64_t>(node.resval.real) : std::int64_t{node.resval.longInteger};
}

std::optional<GroupValue> textOf(const resbuf &node)
{
    if (!node.resval.string)
        return std::nullopt;
    const std::u16string_view text(node.resval.string);
    switch (drawing::valueKind(node.restype)) {
    case drawing::ValueKind::Binary:
        return bytesValue(text);
    case drawing::ValueKind::Handle:
    case drawing::ValueKind::Reference:
        return handleValue(text);
    default:
        return std::u16string(text);
    }
}

std::optional<GroupValue> valueOf(const resbuf &node)
{
    switch (valueKind(node.restype)) {
    case ValueKind::Text:
        return textOf(node);
    case ValueKind::Real:
        if (drawing::isInteger(drawing::valueKind(node.restype)))
            return integerOf(node, true);
        return node.resval.real;
    case ValueKind::Point:
        return Point{node.resval.point.x, node.resval.point.y, node.resval.point.z};
    case ValueKind::Short:
    case ValueKind::Long:
        return integerOf(node, false);
    case ValueKind::Name:
        return Handle{static_cast<std::uint64_t>(node.resval.name.words[1])};
    case ValueKind::None:
        break;
    }
    return std::nullopt;
}

} // namespace

std::optional<EntityRequest> entityRequest(const resbuf *nodes)
{
    EntityRequest request;
    for (const resbuf *node = nodes; node; node = node->rbnext) {
        if (node->restype == NameCode) {
            request.name = node->resval.name;
            continue;
        }
        if (node->restype == SecondNameCode || node->restype == ExtendedDataCode)
            continue;
        const std::optional<GroupValue> value = valueOf(*node);
        if (!value)
            return std::nullopt;
        request.groups.push_back({node->restype, *value});
    }
    return request;
}
