#include "host/kernel/Document.h"

#include "host/commands/Picking.h"
#include "host/drawing/LayoutEditing.h"
#include "host/drawing/LayoutViewports.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/variables/DrawingExtents.h"
#include "host/kernel/variables/DrawingVariables.h"
#include "host/kernel/variables/HostVariables.h"
#include "host/kernel/variables/VariableNames.h"
#include "host/kernel/windows/ReadingProgress.h"

#include <QDir>
#include <QFileInfo>

namespace {

std::u16string fileName(const drawing::Drawing &drawing)
{
    return drawing.path().isEmpty() ? u"Drawing1.dwg" : QFileInfo(drawing.path()).fileName().toStdU16String();
}

// Where the drawing is, or would be saved.
std::u16string folderOf(const drawing::Drawing &drawing)
{
    return folderName(drawing.path().isEmpty() ? QDir::currentPath() : QFileInfo(drawing.path()).absolutePath());
}

// Drawings that are too old for layouts have one sheet.
std::u16string activeLayoutName(const drawing::Drawing &drawing)
{
    const std::optional<drawing::Layout> active = drawing::activeLayout(drawing);
    return active ? active->name : u"Layout1";
}

} // namespace

Document::Document(HostServices &services)
    : m_services(services), m_openDrawing(std::make_unique<OpenDrawing>()), m_machine(services.machineLimits),
      m_lispHost(m_machine, services, m_variables)
{
    bindUnits(m_variables, m_machine.unitVariables());
    bindInput(m_variables, prompter());
    computeEnvironment(m_variables);
    computeCommandLine(m_variables, *this);
    m_machine.setOwner(this);
    m_machine.setLineInput(&m_typedLines);
    m_variables.keepInDrawing(
        [this](const VariableRow &row, const VariableValue &value) { keepVariable(drawing(), row, value); });
    m_variables.spellNames(
        [this](NameOf what, std::u16string_view name) { return spelledName(drawing(), what, name); });
    computeSpace(m_variables, *this);
    m_userSystems.compute(m_variables);
    computeCoordinates(m_variables);
    computeExtents(m_variables, *this);
    computeChanges(m_variables, *this);
    m_variables.compute(u"DWGNAME", [this] { return fileName(drawing()); });
    m_variables.compute(u"DWGPREFIX", [this] { return folderOf(drawing()); });
    prompter().snapper = [this](const LispPoint &near, snap::Modes modes, const LispPoint &from) {
        return snapped(near, modes, from);
    };
    readVariables();
    defineHostBuiltins(m_machine);
}

Document::~Document() = default;

void Document::open(const QString &path)
{
    ReadingProgress progress(*m_services.userInterface, m_machine, path);
    m_openDrawing = std::make_unique<OpenDrawing>(path, [&progress](double share) { progress.show(share); });
    m_session.forgetSelections();
    m_selectionSets.forgetDrawing();
    m_commandLine.forgetDrawing();
    m_viewport = drawing::NoRecord;
    workOnPaper();
    m_variables.forgetDrawing();
    m_userSystems.forgetDrawing();
    readVariables();
}

void Document::readVariables()
{
    loadVariables(m_variables, drawing());
    m_userSystems.readDrawing();
}

std::u16string Document::currentLayer() const
{
    return std::get<std::u16string>(m_variables.get(*findVariable(u"CLAYER")));
}

void Document::programFailed()
{
    m_openDrawing->drawing.database().journal().endTransactions();
}

bool Document::isPaperSpaceCurrent() const
{
    return std::get<int>(m_variables.get(*findVariable(u"TILEMODE"))) == 0 && currentViewport() == drawing::NoRecord;
}

// It may have been erased meanwhile, or another layout be shown.
drawing::RecordId Document::currentViewport() const
{
    const bool isModelTab = std::get<int>(m_variables.get(*findVariable(u"TILEMODE"))) != 0;
    const bool isCurrent = m_isInViewport && !isModelTab && drawing::isViewport(m_openDrawing->drawing, m_viewport);
    return isCurrent ? m_viewport : drawing::NoRecord;
}

void Document::workThroughViewport(drawing::RecordId viewport)
{
    m_viewport = viewport;
    m_isInViewport = true;
}

bool Document::workThroughViewport()
{
    const std::vector<drawing::RecordId> viewports = drawing::viewports(drawing());
    if (viewports.empty())
        return false;
    const bool isLastThere = drawing::isViewport(drawing(), m_viewport);
    workThroughViewport(isLastThere ? m_viewport : viewports.front());
    return true;
}

std::u16string Document::currentLayout() const
{
    if (std::get<int>(m_variables.get(*findVariable(u"TILEMODE"))) != 0)
        return u"Model";
    return activeLayoutName(m_openDrawing->drawing);
}

bool Document::showLayout(std::u16string_view name)
{
    const bool isModel = drawing::isModelName(name);
    if (!isModel && drawing::folded(name) != drawing::folded(activeLayoutName(drawing()))) {
        const std::optional<drawing::Layout> layout = drawing::findLayout(drawing().database(), name);
        if (!layout || !drawing::activateLayout(drawing(), *layout))
            return false;
    }
    workOnPaper();
    return m_variables.set(*findVariable(u"TILEMODE"), isModel ? 1 : 0);
}

std::optional<LispPoint> Document::snapped(const LispPoint &near, snap::Modes modes, const LispPoint &from)
{
    const auto found =
        commands::snapped(m_session, {near.x, near.y, near.z}, modes, drawing::Point{from.x, from.y, from.z});
    return found ? std::optional(LispPoint{found->x, found->y, found->z}) : std::nullopt;
}

QWidget *Document::window()
{
    return m_services.userInterface->documentWindow();
}
