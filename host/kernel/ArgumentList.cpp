#include "host/kernel/ArgumentList.h"

#include "host/interpreter/Compiler.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/TextFormat.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/drawing/SelectionSet.h"
#include "lisp/TypeCode.h"

#include <QStringView>

#include <cstdint>
#include <limits>

using lisp::Value;

void ArgumentList::add(Value value)
{
    if (value.isInteger())
        addInteger(value.asInteger());
    else if (value.isReal())
        addNode(TypeReal)->resval.real = value.asReal();
    else if (value.isString())
        addString(*value.asString());
    else if (value.isNil())
        addNode(TypeNil);
    else if (value == m_machine.boolean(true))
        addNode(TypeTrue);
    else if (value.isObject())
        addObject(value);
    else if (!value.isCons())
        addNode(TypeNone);
    else if (!addPoint(value))
        addList(value);
}

resbuf *ArgumentList::addNode(int typeCode)
{
    resbuf *node = m_pool.allocate(m_frame, typeCode);
    (m_last ? m_last->rbnext : m_head) = node;
    m_last = node;
    return node;
}

// The whole word is written for a short as well: handlers may read the wide member of any integer.
void ArgumentList::addInteger(std::int32_t number)
{
    using Short = std::numeric_limits<std::int16_t>;
    const bool isShort = number >= Short::min() && number <= Short::max();
    addNode(isShort ? TypeShort : TypeLong)->resval.longInteger = number;
}

bool isLent(lisp::String &string)
{
    constexpr std::uint32_t Long = 4096;
    if (string.length < Long || string.buffer)
        return false;
    if (!string.isKnownText)
        string.isKnownText = QStringView(string.characters).size() == string.length;
    return string.isKnownText;
}

void ArgumentList::addString(lisp::String &string)
{
    resbuf *node = addNode(TypeString);
    if (m_width == TextWidth::Narrow)
        node->resval.narrowString = duplicateNarrow(QStringView(string.view()).toLocal8Bit().toStdString());
    else if (isLent(string))
        m_pool.lend(node, string.characters);
    else
        NodePool::setText(node, string.view());
}

void ArgumentList::addObject(Value object)
{
    if (const auto *entity = lisp::asNative<EntityName>(object))
        addNode(TypeEntity)->resval.name = entity->name;
    else if (const auto *set = lisp::asNative<SelectionSet>(object))
        addNode(TypeSelectionSet)->resval.name = set->nodeName();
    else
        addNode(TypeNone);
}

bool ArgumentList::addPoint(Value list)
{
    const std::optional<PointList> points = pointListOf(list);
    if (points)
        addNode(points->count == 2 ? TypePoint2d : TypePoint3d)->resval.point = points->point;
    return points.has_value();
}

void ArgumentList::addList(Value list)
{
    m_machine.checkNativeStack();
    addNode(TypeListBegin);
    for (; list.isCons(); list = list.asCons()->cdr)
        add(list.asCons()->car);
    if (!list.isNil()) {
        addNode(TypeDot);
        add(list);
    }
    addNode(TypeListEnd);
}
