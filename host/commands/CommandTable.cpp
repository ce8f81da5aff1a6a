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
    {u"-ATTDEF", defineAttribute},
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
    {u"3DFACE", face},
    {u"3DPOLY", spatialPolyline},
    {u"ARC", arc},
    {u"AREA", area, Own},
    {u"ARRAY", array},
    {u"ATTDEF", defineAttribute},
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
    {u"DIMANGULAR", dimensionAngular},
    {u"DIMBASELINE", dimensionBaseline},
    {u"DIMCONTINUE", dimensionContinue},
    {u"DIMDIAMETER", dimensionDiameter},
    {u"DIMLINEAR", dimensionLinear},
    {u"DIMORDINATE", dimensionOrdinate},
    {u"DIMRADIUS", dimensionRadius},
    {u"DIMSTYLE", dimensionStyle},
    {u"DIST", distance, Own, Kept},
    {u"DIVIDE", divide},
    {u"DONUT", donut},
    {u"DRAWORDER", drawOrder},
    {u"DTEXT", text},
    {u"DXFOUT", exportDrawing, Own},
    {u"ELLIPSE", ellipse},
    {u"ERASE", erase},
    {u"EXPLODE", explode},
    {u"EXTEND", extend},
    {u"FILLET", fillet},
    {u"GRAPHSCR", changeNothing, Own, Kept},
    {u"HATCH", hatch},
    {u"HATCHEDIT", editHatch},
    {u"ID", identify, Own, Kept},
    {u"INSERT", insert},
    {u"LAYER", layer},
    {u"LAYOUT", layout},
    {u"LEADER", leader},
    {u"LIMITS", limits},
    {u"LINE", line},
    {u"LINETYPE", linetype},
    {u"LIST", listObjects, Own},
    {u"MATCHPROP", matchProperties},
    {u"MEASURE", measure},
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
    {u"RAY", ray},
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
    {u"SPLINE", spline},
    {u"STRETCH", stretch},
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

struct Alias
{
    std::u16string_view alias, name;
};

// What people type for short. Sorted.
constexpr Alias aliases[] = {
    {u"-ATT", u"-ATTDEF"},    {u"-B", u"-BLOCK"},       {u"-BO", u"-BOUNDARY"},   {u"-CH", u"CHANGE"},
    {u"-H", u"-HATCH"},       {u"-I", u"-INSERT"},      {u"-LA", u"-LAYER"},      {u"-LT", u"-LINETYPE"},
    {u"-OS", u"-OSNAP"},      {u"-P", u"-PAN"},         {u"-PU", u"-PURGE"},      {u"-REN", u"-RENAME"},
    {u"-ST", u"-STYLE"},      {u"-T", u"-MTEXT"},       {u"-V", u"-VIEW"},        {u"-W", u"-WBLOCK"},
    {u"3F", u"3DFACE"},       {u"3P", u"3DPOLY"},       {u"A", u"ARC"},           {u"AA", u"AREA"},
    {u"AR", u"ARRAY"},        {u"ATT", u"ATTDEF"},      {u"B", u"BLOCK"},         {u"BH", u"BHATCH"},
    {u"BO", u"BOUNDARY"},     {u"BR", u"BREAK"},        {u"C", u"CIRCLE"},        {u"CO", u"COPY"},
    {u"COL", u"COLOR"},       {u"CP", u"COPY"},         {u"D", u"DIMSTYLE"},      {u"DAL", u"DIMALIGNED"},
    {u"DAN", u"DIMANGULAR"},  {u"DBA", u"DIMBASELINE"}, {u"DCO", u"DIMCONTINUE"}, {u"DDI", u"DIMDIAMETER"},
    {u"DI", u"DIST"},         {u"DIV", u"DIVIDE"},      {u"DLI", u"DIMLINEAR"},   {u"DO", u"DONUT"},
    {u"DOR", u"DIMORDINATE"}, {u"DR", u"DRAWORDER"},    {u"DRA", u"DIMRADIUS"},   {u"DT", u"TEXT"},
    {u"E", u"ERASE"},         {u"EL", u"ELLIPSE"},      {u"EX", u"EXTEND"},       {u"F", u"FILLET"},
    {u"H", u"HATCH"},         {u"HE", u"HATCHEDIT"},    {u"I", u"INSERT"},        {u"L", u"LINE"},
    {u"LA", u"LAYER"},        {u"LEAD", u"LEADER"},     {u"LI", u"LIST"},         {u"LO", u"-LAYOUT"},
    {u"LS", u"LIST"},         {u"LT", u"LINETYPE"},     {u"M", u"MOVE"},          {u"MA", u"MATCHPROP"},
    {u"ME", u"MEASURE"},      {u"MI", u"MIRROR"},       {u"MS", u"MSPACE"},       {u"MT", u"MTEXT"},
    {u"MV", u"MVIEW"},        {u"O", u"OFFSET"},        {u"OS", u"OSNAP"},        {u"P", u"PAN"},
    {u"PE", u"PEDIT"},        {u"PL", u"PLINE"},        {u"PO", u"POINT"},        {u"POL", u"POLYGON"},
    {u"PS", u"PSPACE"},       {u"PU", u"PURGE"},        {u"R", u"REDRAW"},        {u"RA", u"REDRAWALL"},
    {u"RE", u"REGEN"},        {u"REA", u"REGENALL"},    {u"REC", u"RECTANG"},     {u"REN", u"RENAME"},
    {u"RO", u"ROTATE"},       {u"S", u"STRETCH"},       {u"SC", u"SCALE"},        {u"SCR", u"SCRIPT"},
    {u"SET", u"SETVAR"},      {u"SO", u"SOLID"},        {u"SPL", u"SPLINE"},      {u"ST", u"STYLE"},
    {u"T", u"MTEXT"},         {u"TR", u"TRIM"},         {u"V", u"VIEW"},          {u"W", u"WBLOCK"},
    {u"X", u"EXPLODE"},       {u"XL", u"XLINE"},        {u"Z", u"ZOOM"},
};

static_assert(std::ranges::is_sorted(aliases, {}, &Alias::alias));
static_assert(std::ranges::all_of(aliases, [](const Alias &alias) {
    return std::ranges::binary_search(table, alias.name, {}, &CommandRow::name) &&
           !std::ranges::binary_search(table, alias.alias, {}, &CommandRow::name);
}));

template <class Row>
const Row *rowWith(std::span<const Row> rows, std::u16string_view name, std::u16string_view Row::*member)
{
    const auto row = std::ranges::lower_bound(rows, name, {}, member);
    return row != rows.end() && (*row).*member == name ? &*row : nullptr;
}

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
    const Alias *alias = rowWith<Alias>(aliases, plain, &Alias::alias);
    return rowWith<CommandRow>(table, alias ? alias->name : plain, &CommandRow::name);
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
