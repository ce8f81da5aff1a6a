#include "host/kernel/variables/HostVariables.h"

#include "host/drawing/LayoutViewports.h"
#include "host/interpreter/Machine.h"
#include "host/kernel/Document.h"
#include "host/kernel/input/Prompter.h"
#include "host/kernel/variables/SystemVariables.h"

#include <QDateTime>
#include <QDir>
#include <QSysInfo>

#include <chrono>

namespace {

constexpr double MillisecondsPerDay = 24.0 * 60 * 60 * 1000;

// Year, month and day in front of the point, the time of day behind it: 20251231.235959999.
double calendarDate(const QDateTime &time)
{
    const QDate date = time.date();
    const QTime clock = time.time();
    const int day = date.year() * 10000 + date.month() * 100 + date.day();
    return day + clock.hour() / 1e2 + clock.minute() / 1e4 + clock.second() / 1e6 + clock.msec() / 1e9;
}

// Days of the Julian calendar, with the part of the day since midnight.
double julianDate(const QDateTime &time)
{
    return static_cast<double>(time.date().toJulianDay()) + time.time().msecsSinceStartOfDay() / MillisecondsPerDay;
}

int millisecondsSinceStart()
{
    using namespace std::chrono;
    static const steady_clock::time_point start = steady_clock::now();
    return static_cast<int>(duration_cast<milliseconds>(steady_clock::now() - start).count() & 0x7FFFFFFF);
}

constexpr int PaperNumber = 1, ModelNumber = 2; // of the paper itself, and of the model in its own tab

bool isModelShown(Document &document)
{
    return std::get<int>(document.variables().get(*findVariable(u"TILEMODE"))) != 0;
}

int currentViewportNumber(Document &document)
{
    if (isModelShown(document))
        return ModelNumber;
    const drawing::RecordId viewport = document.currentViewport();
    return viewport == drawing::NoRecord
               ? PaperNumber
               : static_cast<int>(drawing::viewportNumber(document.drawing().database(), viewport));
}

// False: there is no viewport with this number.
bool makeViewportCurrent(Document &document, int number)
{
    if (isModelShown(document))
        return number == ModelNumber;
    if (number == PaperNumber) {
        document.workOnPaper();
        return true;
    }
    for (const drawing::RecordId viewport : drawing::viewports(document.drawing()))
        if (drawing::viewportNumber(document.drawing().database(), viewport) == number) {
            document.workThroughViewport(viewport);
            return true;
        }
    return false;
}

std::u16string loginName()
{
    const QString name =
        qEnvironmentVariable("USERNAME", qEnvironmentVariable("USER", qEnvironmentVariable("LOGNAME")));
    return name.toStdU16String();
}

} // namespace

std::u16string folderName(const QString &path)
{
    const QString native = QDir::toNativeSeparators(path);
    return (native.endsWith(QDir::separator()) ? native : native + QDir::separator()).toStdU16String();
}

void bindUnits(SystemVariables &variables, lisp::UnitVariables &units)
{
    variables.bind(u"LUNITS", units.lunits);
    variables.bind(u"LUPREC", units.luprec);
    variables.bind(u"AUNITS", units.aunits);
    variables.bind(u"AUPREC", units.auprec);
    variables.bind(u"UNITMODE", units.unitmode);
    variables.bind(u"DIMZIN", units.dimzin);
}

void bindInput(SystemVariables &variables, Prompter &prompter)
{
    variables.bind(u"LASTPOINT", prompter.lastPoint);
    variables.bind(u"ANGBASE", prompter.angleBase);
    variables.bind(u"ANGDIR", prompter.clockwise);
}

void computeEnvironment(SystemVariables &variables)
{
    variables.compute(u"CDATE", [] { return calendarDate(QDateTime::currentDateTime()); });
    variables.compute(u"DATE", [] { return julianDate(QDateTime::currentDateTime()); });
    variables.compute(u"MILLISECS", [] { return millisecondsSinceStart(); });
    variables.compute(u"LOGINNAME", [] { return loginName(); });
    variables.compute(u"PLATFORM", [] { return QSysInfo::prettyProductName().toStdU16String(); });
    variables.compute(u"TEMPPREFIX", [] { return folderName(QDir::tempPath()); });
}

void computeSpace(SystemVariables &variables, Document &document)
{
    const auto showLayout = [&document](const VariableValue &value) {
        return document.showLayout(std::get<std::u16string>(value));
    };
    const auto useViewport = [&document](const VariableValue &value) {
        return makeViewportCurrent(document, std::get<int>(value));
    };
    variables.compute(
        u"CTAB", [&document] { return document.currentLayout(); }, showLayout);
    variables.compute(
        u"CVPORT", [&document] { return currentViewportNumber(document); }, useViewport);
}

void computeCoordinates(SystemVariables &variables)
{
    variables.compute(u"WORLDUCS", [&variables]() -> VariableValue {
        const auto is = [&variables](std::u16string_view name, double x, double y) {
            const auto point = std::get<LispPoint>(variables.get(*findVariable(name)));
            return point.x == x && point.y == y && point.z == 0;
        };
        return is(u"UCSORG", 0, 0) && is(u"UCSXDIR", 1, 0) && is(u"UCSYDIR", 0, 1) ? 1 : 0;
    });
}

void computeChanges(SystemVariables &variables, Document &document)
{
    variables.compute(u"DBMOD", [&document] { return document.drawing().isModified() ? 1 : 0; });
}

void computeCommandLine(SystemVariables &variables, Document &document)
{
    const auto undoControl = [&document] {
        using enum drawing::Journal::Recording;
        constexpr int IsOn = 1, IsOfOne = 2, IsAutomatic = 4, HasGroup = 8;
        const drawing::Journal &journal = document.drawing().database().journal();
        const int group = journal.isGroupOpen() || journal.isBlockOpen() ? HasGroup : 0;
        return journal.recording() == Off ? 0 : IsOn | group | (journal.recording() == One ? IsOfOne : IsAutomatic);
    };
    variables.compute(u"CMDACTIVE", [&document] { return document.commandLine().isActive() ? 1 : 0; });
    variables.compute(u"CMDNAMES", [&document] { return document.commandLine().names(); });
    variables.compute(u"LASTPROMPT", [&document] { return document.commandLine().lastPrompt(); });
    variables.compute(u"UNDOCTL", undoControl);
}
