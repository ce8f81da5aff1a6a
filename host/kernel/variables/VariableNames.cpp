#include "host/kernel/variables/VariableNames.h"

#include "host/commands/Colors.h"
#include "host/drawing/Dictionaries.h"
#include "host/drawing/LayerState.h"
#include "host/drawing/edit/GroupEditing.h"

#include <algorithm>

using drawing::Drawing;
using drawing::folded;
using drawing::NameId;
using drawing::NoRecord;
using drawing::RecordId;

namespace known = drawing::known;

namespace {

using Name = std::optional<std::u16string>;

constexpr std::int64_t OfReference = 16; // bit of the group 70 of every table record

constexpr std::u16string_view relativeLinetypes[] = {u"ByLayer", u"ByBlock"};
// The arrows that every drawing can have; where one is used, its block bears the name.
constexpr std::u16string_view arrows[] = {u"_ArchTick",   u"_BoxBlank",    u"_BoxFilled", u"_Closed",   u"_ClosedBlank",
                                          u"_DatumBlank", u"_DatumFilled", u"_Dot",       u"_DotBlank", u"_DotSmall",
                                          u"_Integral",   u"_None",        u"_Oblique",   u"_Open",     u"_Open30",
                                          u"_Open90",     u"_Origin",      u"_Origin2",   u"_Small"};

Name oneOf(std::span<const std::u16string_view> names, std::u16string_view name)
{
    const auto found = std::ranges::find(names, folded(name), [](std::u16string_view one) { return folded(one); });
    return found != names.end() ? Name(*found) : std::nullopt;
}

// Drawings that lack a whole table lack the records that no drawing can do without, too; the things are there.
Name recordName(const Drawing &drawing, NameId table, std::u16string_view name, std::u16string_view alwaysThere = {},
                std::int64_t unusable = OfReference)
{
    if (name.empty())
        return std::nullopt;
    const RecordId record = drawing.tables().find(table, name);
    if (record == NoRecord)
        return folded(name) == folded(alwaysThere) ? Name(alwaysThere) : std::nullopt;
    const std::int64_t flags = integerOf(drawing.database().groups(record), drawing::groupcode::Count);
    return (flags & unusable) == 0 ? Name(drawing.database().name(record)) : std::nullopt;
}

Name colorName(std::u16string_view name)
{
    const std::optional<commands::Color> color = commands::colorFromText(name);
    return color ? Name(commands::colorText(*color)) : std::nullopt;
}

Name linetypeName(const Drawing &drawing, std::u16string_view name)
{
    const Name relative = oneOf(relativeLinetypes, name);
    return relative ? relative : recordName(drawing, known::Linetype, name, u"Continuous");
}

// No name, which may be typed as a period, is the filled arrow. The underscore of the others may be left out.
Name arrowName(const Drawing &drawing, std::u16string_view name)
{
    if (name.empty() || name == u".")
        return u"";
    const Name block = name.starts_with(u'*') ? std::nullopt : recordName(drawing, known::Block, name);
    if (block)
        return block;
    const Name arrow = oneOf(arrows, name);
    return arrow ? arrow : oneOf(arrows, u'_' + std::u16string(name));
}

Name tableStyleName(const drawing::Database &database, std::u16string_view name)
{
    constexpr std::u16string_view Standard = u"Standard";
    const RecordId root = drawing::namedObjects(database);
    const RecordId styles = root != NoRecord ? drawing::findEntry(database, root, u"ACAD_TABLESTYLE") : NoRecord;
    if (styles != NoRecord)
        for (const drawing::DictionaryEntry &style : drawing::dictionaryEntries(database, styles))
            if (folded(style.name) == folded(name))
                return style.name;
    return folded(name) == folded(Standard) ? Name(Standard) : std::nullopt;
}

} // namespace

std::optional<std::u16string> spelledName(const Drawing &drawing, NameOf what, std::u16string_view name)
{
    switch (what) {
    case NameOf::Color:
        return colorName(name);
    case NameOf::HatchColor: // a period, and no name: that of other objects
        return name.empty() || name == u"." ? Name(u".") : colorName(name);
    case NameOf::Layer:
        return recordName(drawing, known::Layer, name, u"0", OfReference | drawing::layerflag::Frozen);
    case NameOf::Linetype:
        return linetypeName(drawing, name);
    case NameOf::TextStyle:
        return recordName(drawing, known::Style, name, u"Standard");
    case NameOf::TableStyle:
        return tableStyleName(drawing.database(), name);
    case NameOf::Arrow:
        return arrowName(drawing, name);
    case NameOf::Nothing:
        break;
    }
    return std::u16string(name);
}
