#include "host/kernel/drawing/EntityName.h"

#include "host/interpreter/Machine.h"

#include <QString>

using drawing::Drawing;
using drawing::RecordId;
using lisp::Value;

namespace {

constexpr int DrawingShift = 32;

} // namespace

std::u16string EntityName::printed() const
{
    return QStringLiteral("<Entity name: %1>").arg(name.words[1], 0, 16).toStdU16String();
}

bool EntityName::equals(const Native &other) const
{
    const auto *entity = dynamic_cast<const EntityName *>(&other);
    return entity && entity->name.words[0] == name.words[0];
}

Value entityName(lisp::Machine &machine, const LispName &name)
{
    return machine.heap().newNative<EntityName>(name);
}

Value entityName(lisp::Machine &machine, const Drawing &drawing, RecordId record)
{
    return entityName(machine, nodeName(drawing, record));
}

LispName nodeName(const Drawing &drawing, RecordId record)
{
    return {{static_cast<std::int64_t>(drawing.number()) << DrawingShift | record,
             static_cast<std::int64_t>(drawing.database().record(record).handle)}};
}

RecordId recordOf(const Drawing &drawing, const LispName &name)
{
    const auto record = static_cast<RecordId>(name.words[0]);
    const bool isOurs = name.words[0] >> DrawingShift == drawing.number();
    return isOurs && record < drawing.database().recordCount() ? record : drawing::NoRecord;
}
