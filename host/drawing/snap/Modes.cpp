#include "host/drawing/snap/Modes.h"

#include <QList>
#include <QStringView>

namespace snap {

namespace {

struct ModeRow
{
    Mode mode;
    std::u16string_view word; // in lower case, as it may be typed
    std::u16string_view name;
};

constexpr ModeRow rows[] = {
    {End, u"endpoint", u"endpoint"},
    {Middle, u"midpoint", u"midpoint"},
    {Middle, u"middle", u"midpoint"},
    {Center, u"center", u"center"},
    {Node, u"node", u"node"},
    {Quadrant, u"quadrant", u"quadrant"},
    {Intersection, u"intersection", u"intersection"},
    {Insertion, u"insertion", u"insertion"},
    {Perpendicular, u"perpendicular", u"perpendicular"},
    {Tangent, u"tangent", u"tangent"},
    {Nearest, u"nearest", u"nearest"},
    {ApparentIntersection, u"appint", u"apparent intersection"},
    {ApparentIntersection, u"apparent", u"apparent intersection"},
    {None, u"none", u""},
    {None, u"off", u""},
    {None, u"quick", u""},
    {None, u"extension", u""},
    {None, u"parallel", u""},
};

const ModeRow *rowOf(QStringView word)
{
    constexpr qsizetype Shortest = 3;
    if (word.size() < Shortest)
        return nullptr;
    for (const ModeRow &row : rows)
        if (QStringView(row.word.data(), static_cast<qsizetype>(row.word.size())).startsWith(word, Qt::CaseInsensitive))
            return &row;
    return nullptr;
}

} // namespace

std::optional<Modes> modesFromText(std::u16string_view text)
{
    Modes modes = None;
    for (QStringView word : QStringView(text.data(), static_cast<qsizetype>(text.size())).split(u',')) {
        word = word.trimmed();
        if (word.startsWith(u'_'))
            word = word.mid(1);
        const ModeRow *row = rowOf(word);
        if (!row)
            return std::nullopt;
        modes |= row->mode;
    }
    return modes;
}

std::u16string namesOf(Modes modes)
{
    std::u16string names;
    for (Modes rest = modes; const ModeRow &row : rows)
        if ((rest & row.mode) != 0) {
            names += (names.empty() ? u"" : u" or ") + std::u16string(row.name);
            rest &= ~row.mode;
        }
    return names;
}

} // namespace snap
