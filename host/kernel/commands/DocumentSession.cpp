#include "host/kernel/commands/DocumentSession.h"

#include "host/commands/ViewState.h"
#include "host/interpreter/FileSearch.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/interpreter/text/AngularUnits.h"
#include "host/interpreter/text/LinearUnits.h"
#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/commands/LispAnswers.h"

#include <QFileInfo>

#include <algorithm>

using commands::InputKind;
using commands::Point;

namespace {

Point pointOfValue(const LispPoint &point)
{
    return {point.x, point.y, point.z};
}

commands::VariableValue forCommands(const VariableValue &value)
{
    if (const auto *point = std::get_if<LispPoint>(&value))
        return pointOfValue(*point);
    if (const auto *integer = std::get_if<int>(&value))
        return *integer;
    if (const auto *real = std::get_if<double>(&value))
        return *real;
    return std::get<std::u16string>(value);
}

VariableValue fromCommands(const commands::VariableValue &value)
{
    if (const auto *point = std::get_if<Point>(&value))
        return LispPoint{point->x, point->y, point->z};
    if (const auto *integer = std::get_if<int>(&value))
        return *integer;
    if (const auto *real = std::get_if<double>(&value))
        return *real;
    return std::get<std::u16string>(value);
}

InputRequest::Kind requestKind(InputKind kind)
{
    using Kind = InputRequest::Kind;
    switch (kind) {
    case InputKind::Point:
        return Kind::Point;
    case InputKind::Corner:
        return Kind::Corner;
    case InputKind::Distance:
        return Kind::Distance;
    case InputKind::Angle:
        return Kind::Angle;
    case InputKind::Integer:
        return Kind::Integer;
    case InputKind::Real:
        return Kind::Real;
    case InputKind::String:
        return Kind::String;
    case InputKind::Keyword:
        return Kind::Keyword;
    case InputKind::Entity:
        return Kind::Entity;
    case InputKind::Objects:
        break;
    }
    return Kind::Selection;
}

} // namespace

drawing::Drawing &DocumentSession::drawing()
{
    return m_document.drawing();
}

selection::EntityIndex &DocumentSession::entityIndex()
{
    return m_document.openDrawing().entityIndex;
}

void DocumentSession::openDrawing(const QString &path)
{
    m_document.open(path);
}

bool DocumentSession::plot(const commands::PlotJob &job, std::u16string &failure)
{
    return m_document.services().plotter(m_document.drawing(), job, failure);
}

std::optional<commands::VariableValue> DocumentSession::variable(std::u16string_view name) const
{
    const VariableRow *row = findVariable(name);
    if (!row)
        return std::nullopt;
    return forCommands(m_document.variables().get(*row));
}

void DocumentSession::assign(std::u16string_view name, const commands::VariableValue &value)
{
    if (!set(name, value))
        m_document.variables().assign(name, fromCommands(value));
}

bool DocumentSession::set(std::u16string_view name, const commands::VariableValue &value)
{
    const VariableRow *row = findVariable(name);
    return row && m_document.variables().set(*row, fromCommands(value));
}

// The user's coordinate system may be another one then. What is seen is not.
void DocumentSession::readVariables()
{
    const commands::ViewState view = commands::viewState(*this);
    m_document.readVariables();
    commands::show(*this, view);
}

bool DocumentSession::isPaperSpaceCurrent() const
{
    return m_document.isPaperSpaceCurrent();
}

drawing::RecordId DocumentSession::currentViewport() const
{
    return m_document.currentViewport();
}

bool DocumentSession::workThroughViewport()
{
    return m_document.workThroughViewport();
}

void DocumentSession::workOnPaper()
{
    m_document.workOnPaper();
}

std::optional<Point> DocumentSession::pointOf(std::u16string_view text) const
{
    const std::optional<LispPoint> point = pointFromText(text, m_document.prompter().context());
    if (!point)
        return std::nullopt;
    Point found = pointOfValue(*point);
    const bool isRelative = text.find(u'@') != text.npos;
    if (!isRelative && std::ranges::count(text, u',') < 2)
        found.dimensions = 2;
    return found;
}

std::optional<double> DocumentSession::distanceOf(std::u16string_view text) const
{
    return distanceFromText(text, m_document.prompter().context());
}

std::optional<double> DocumentSession::angleOf(std::u16string_view text) const
{
    const CoordinateContext context = m_document.prompter().context();
    const std::optional<double> typed = angleFromText(text, context);
    if (typed && context.clockwise)
        return -*typed;
    return typed;
}

std::u16string DocumentSession::distanceText(double distance) const
{
    const lisp::UnitVariables &units = m_document.machine().unitVariables();
    const lisp::LinearUnits mode = lisp::linearUnits(units.lunits).value_or(lisp::LinearUnits::Decimal);
    return lisp::rtos(distance, mode, units.luprec, {units.unitmode, units.dimzin});
}

std::u16string DocumentSession::angleText(double angle) const
{
    const lisp::UnitVariables &units = m_document.machine().unitVariables();
    const lisp::AngularUnits mode = lisp::angularUnits(units.aunits).value_or(lisp::AngularUnits::Degrees);
    const bool isClockwise = m_document.prompter().context().clockwise;
    return lisp::angtos(isClockwise ? -angle : angle, mode, units.auprec, {units.unitmode, units.dimzin});
}

std::optional<QString> DocumentSession::findFile(const std::u16string &name) const
{
    const std::optional<std::u16string> path = lisp::findFile(name, m_document.machine().searchFolders());
    const bool isFile = path && QFileInfo(QString::fromStdU16String(*path)).isFile();
    return isFile ? std::optional(QString::fromStdU16String(*path)) : std::nullopt;
}

std::optional<std::u16string> DocumentSession::scriptText(const std::u16string &name)
{
    std::optional<QString> path = findFile(name + u".scr");
    if (!path)
        path = findFile(name);
    QString failure;
    return path ? lisp::readSourceFile(*path, failure) : std::nullopt;
}

bool DocumentSession::evaluate(const std::u16string &expression, std::optional<commands::Input> &answer)
{
    try {
        const lisp::Value value = m_document.machine().load(expression, {});
        if (!m_document.commandLine().isActive())
            print(u'\n' + lisp::printed(value));
        else if (value.isTrue())
            answer = answerOf(m_document, value);
    } catch (const lisp::LispError &error) {
        print(u"\n; error: " + error.message + u'\n');
        return false;
    }
    return true;
}

void DocumentSession::print(std::u16string_view text)
{
    m_document.services().print(text);
}

std::optional<commands::Input> DocumentSession::request(InputKind kind, const std::u16string &prompt,
                                                        const std::optional<Point> &base,
                                                        const std::optional<snap::Modes> &snap)
{
    InputRequest request{requestKind(kind), prompt};
    request.snap = snap;
    if (base)
        request.base = LispPoint{base->x, base->y, base->z};
    const InputReply reply = m_document.services().input->request(request);
    if (reply.kind == InputReply::Kind::Picked)
        return pointOfValue(reply.place);
    return reply.kind == InputReply::Kind::Text ? std::optional<commands::Input>(reply.text) : std::nullopt;
}

void DocumentSession::pulse()
{
    constexpr unsigned Quiet = 256; // who looks at the time more often than that takes longer than the work
    if (++m_pulses % Quiet == 0)
        m_document.machine().pulse();
}

void DocumentSession::showSelected(const commands::Selection &entities)
{
    m_document.services().overlay->showSelected(entities);
}

void DocumentSession::forgetSelections()
{
    m_previousSelection.clear();
    m_impliedSelection.clear();
}
