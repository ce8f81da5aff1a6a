#include "host/commands/CommandTable.h"

#include "host/commands/Commands.h"

#include <QStringView>

#include <algorithm>

namespace commands {

namespace {

using enum CommandRow::Undo;
using enum CommandRow::Preselection;
using enum CommandRow::Company;

// Sorted by name.
// clang-format off
constexpr CommandRow table[] = {
    {u"-ARRAY", array},
    {u"-BHATCH", hatch},
    {u"-BLOCK", block},
    {u"-BOUNDARY", boundary},
    {u"-COLOR", color},
    {u"-DIMSTYLE", dimensionStyle},
    {u"-HATCH", hatch},
    {u"-HATCHEDIT", editHatch},
    {u"-INSERT", insert},
    {u"-LAYER", layer},
    {u"-LAYOUT", layout},
    {u"-LINETYPE", linetype},
    {u"-MTEXT", paragraphText},
    {u"-OSNAP", objectSnap, OneStep, Kept},
    {u"-PAN", pan, Own, Kept},
    {u"-PLOT", plot, Own},
    {u"-PURGE", purge},
    {u"-RENAME", renameObject},
    {u"-STYLE", style},
    {u"-TEXT", text},
    {u"-VIEW", view},
    {u"-VPORTS", viewports},
    {u"-WBLOCK", writeBlock},
    {u"ARC", arc},
    {u"AREA", area, Own},
    {u"ARRAY", array},
    {u"BHATCH", hatch},
    {u"BLOCK", block},
    {u"BOUNDARY", boundary},
    {u"BPOLY", boundary},
    {u"BREAK", breakObject},
    {u"CHANGE", change},
    {u"CHPROP", chprop},
    {u"CIRCLE", circle},
    {u"COLOR", color},
    {u"COPY", copy},
    {u"DELAY", delay, Own, Kept},
    {u"DIM", dimensions},
    {u"DIM1", dimensionOnce},
    {u"DIMALIGNED", dimensionAligned},
    {u"DIMDIAMETER", dimensionDiameter},
    {u"DIMLINEAR", dimensionLinear},
    {u"DIMRADIUS", dimensionRadius},
    {u"DIMSTYLE", dimensionStyle},
    {u"DONUT", donut},
    {u"DRAWORDER", drawOrder},
    {u"DTEXT", text},
    {u"DXFOUT", save, Own},
    {u"ELLIPSE", ellipse},
    {u"ERASE", erase},
    {u"EXPLODE", explode},
    {u"EXTEND", extend},
    {u"FILLET", fillet},
    {u"GRAPHSCR", changeNothing, Own, Kept},
    {u"HATCH", hatch},
    {u"HATCHEDIT", editHatch},
    {u"INSERT", insert},
    {u"LAYER", layer},
    {u"LAYOUT", layout},
    {u"LINE", line},
    {u"LINETYPE", linetype},
    {u"MATCHPROP", matchProperties},
    {u"MIRROR", mirror},
    {u"MOVE", move},
    {u"MSPACE", modelSpace, Own},
    {u"MTEXT", paragraphText},
    {u"MVIEW", viewports},
    {u"OFFSET", offset},
    {u"OOPS", unerase},
    {u"OPEN", open, Own, TakenOrDropped, Alone},
    {u"OSNAP", objectSnap, OneStep, Kept},
    {u"PAN", pan, Own, Kept},
    {u"PEDIT", editPolyline},
    {u"PLAN", plan, Own},
    {u"PLINE", polyline},
    {u"PLOT", plot, Own},
    {u"POINT", point},
    {u"POLYGON", polygon},
    {u"PSELECT", preselect, Own},
    {u"PSPACE", paperSpace, Own},
    {u"PURGE", purge},
    {u"QSAVE", quickSave, Own},
    {u"RECTANG", rectangle},
    {u"RECTANGLE", rectangle},
    {u"REDO", redo, Own, TakenOrDropped, Alone},
    {u"REDRAW", changeNothing, Own, Kept},
    {u"REDRAWALL", changeNothing, Own, Kept},
    {u"REGEN", changeNothing, Own},
    {u"REGENALL", changeNothing, Own},
    {u"RENAME", renameObject},
    {u"ROTATE", rotate},
    {u"SAVE", save, Own},
    {u"SAVEAS", saveAs, Own},
    {u"SCALE", scale},
    {u"SCRIPT", script, Own},
    {u"SELECT", select, Own},
    {u"SETVAR", setVariable, OneStep, Kept},
    {u"SOLID", solid},
    {u"STYLE", style},
    {u"TEXT", text},
    {u"TEXTSCR", changeNothing, Own, Kept},
    {u"TRIM", trim},
    {u"U", undoOne, Own, TakenOrDropped, Alone},
    {u"UCS", ucs},
    {u"UNDO", undo, Own, TakenOrDropped, Alone},
    {u"VIEW", view},
    {u"VPORTS", viewports},
    {u"WBLOCK", writeBlock},
    {u"XLINE", xline},
    {u"ZOOM", zoom, Own, Kept},
};

// clang-format on
static_assert(std::ranges::is_sorted(table, {}, &CommandRow::name));

constexpr CommandRow variableRow{u"", changeVariable, OneStep, Kept};
constexpr CommandRow objectsRow{u"SELECT", select, Own}, objectRow{u"SELECT", selectOneAnswer, Own};

} // namespace

std::span<const CommandRow> commandTable()
{
    return table;
}

const CommandRow *findCommand(std::u16string_view name)
{
    const std::u16string plain = commandName(name);
    const auto row = std::ranges::lower_bound(table, std::u16string_view(plain), {}, &CommandRow::name);
    return row != std::end(table) && row->name == plain ? row : nullptr;
}

const CommandRow &variableCommand()
{
    return variableRow;
}

const CommandRow &objectsQuestion()
{
    return objectsRow;
}

const CommandRow &objectQuestion()
{
    return objectRow;
}

std::u16string commandName(std::u16string_view typed)
{
    const std::size_t start = std::min(typed.find_first_not_of(u"'_. "), typed.size());
    QStringView name(typed.data() + start, static_cast<qsizetype>(typed.size() - start));
    return name.trimmed().toString().toUpper().toStdU16String();
}

} // namespace commands
