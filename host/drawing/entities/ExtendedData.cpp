#include "host/drawing/entities/ExtendedData.h"

#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/entities/EntityValues.h"

namespace drawing {

GroupList extendedData(const Drawing &drawing, RecordId record, const std::function<bool(std::u16string_view)> &takes)
{
    GroupList data;
    GroupReader reader = drawing.database().reader(record);
    bool isTaken = false;
    for (Item item; reader.next(item);) {
        if (item.code < groupcode::ExtendedString)
            continue;
        if (item.code == groupcode::Application)
            isTaken = takes(reader.text(item));
        if (isTaken)
            data.push_back(reader.group(item));
    }
    return data;
}

// A byte for the code, and the value: texts with length and code page, handles and reals in eight bytes.
int extendedSize(const Group &group)
{
    constexpr int Code = 1, TextHead = 3, Brace = 1, EightBytes = 8;
    switch (valueKind(group.code)) {
    case ValueKind::Integer16:
        return Code + 2;
    case ValueKind::Integer32:
        return Code + 4;
    case ValueKind::Real:
        return Code + (std::holds_alternative<Point>(group.value) ? 3 : 1) * EightBytes;
    case ValueKind::Binary:
        return Code + 1 + static_cast<int>(std::get<Bytes>(group.value).bytes.size());
    case ValueKind::Text:
        break;
    default:
        return Code + EightBytes;
    }
    if (group.code != groupcode::ExtendedString)
        return Code + (std::get<std::u16string>(group.value).size() == 1 ? Brace : EightBytes);
    return Code + TextHead + static_cast<int>(std::get<std::u16string>(group.value).size());
}

bool isApplication(const Drawing &drawing, std::u16string_view name)
{
    return drawing.tables().find(known::Application, name) != NoRecord;
}

bool registerApplication(Drawing &drawing, std::u16string_view name)
{
    if (!isValidName(name) || isApplication(drawing, name))
        return false;
    return addTableRecord(drawing, {{groupcode::Type, u"APPID"}, {groupcode::Name, std::u16string(name)}}) != NoRecord;
}

} // namespace drawing
