// -PLOT: draws the model or a layout into a file. There are no printers here.

#include "host/commands/Commands.h"
#include "host/commands/PaperSizes.h"
#include "host/commands/TableRecords.h"
#include "host/commands/ViewState.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/Layouts.h"

#include <QFileInfo>
#include <QString>

#include <cmath>

namespace commands {

namespace {

QString lowered(const std::u16string &text)
{
    return QString::fromStdU16String(text).toLower();
}

void list(Context &context, const std::vector<std::u16string> &lines)
{
    for (const std::u16string &line : lines)
        context.session().print(u'\n' + line);
    context.session().print(u"\n");
}

// A text of which "?" lists what there is.
Task<std::u16string> askListed(Context &context, const std::u16string prompt, const std::vector<std::u16string> choices,
                               const std::u16string standard)
{
    for (;;) {
        const auto answer = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
        if (answer.isNothing())
            co_return standard;
        if (answer.value != u"?")
            co_return answer.value;
        list(context, choices);
    }
}

Task<bool> askYes(Context &context, std::u16string_view prompt, bool standard)
{
    const auto answer = co_await context.ask().keyword({prompt, u"Yes No"});
    co_return answer.isNothing() ? standard : answer.is(u"Yes");
}

Task<std::u16string> askLayout(Context &context)
{
    std::vector<std::u16string> names{u"Model"};
    for (const drawing::Layout &one : drawing::layouts(context.database()))
        if (drawing::findLayout(context.database(), one.name))
            names.push_back(one.name);
    const std::u16string current = context.session().text(u"CTAB");
    const std::u16string name =
        co_await askListed(context, u"Enter a layout name or [?] <" + current + u">: ", names, current);
    if (drawing::isModelName(name))
        co_return u"Model";
    const std::optional<drawing::Layout> layout = drawing::findLayout(context.database(), name);
    if (!layout)
        throw CommandError{u"Layout \"" + name + u"\" not found."};
    co_return layout->name;
}

// What is made: the ending of the file, if the device's name says so.
QString endingOf(const std::u16string &device)
{
    for (const QString &ending : {QStringLiteral("pdf"), QStringLiteral("png"), QStringLiteral("svg")})
        if (lowered(device).contains(ending))
            return ending;
    return {};
}

Task<QString> askDevice(Context &context)
{
    const std::vector<std::u16string> devices{u"PDF", u"PNG", u"SVG"};
    const std::u16string device =
        co_await askListed(context, u"Enter an output device name or [?] <PDF>: ", devices, u"PDF");
    co_return endingOf(device);
}

Task<PaperSize> askPaper(Context &context)
{
    std::vector<std::u16string> names;
    for (const PaperSize &size : paperSizes())
        names.push_back(std::u16string(size.name));
    for (;;) {
        const std::u16string typed = co_await askListed(context, u"Enter paper size or [?] <A4>: ", names, u"A4");
        if (const std::optional<PaperSize> size = paperSize(typed))
            co_return *size;
        context.session().print(u"\nPaper size \"" + typed + u"\" not found.\n");
    }
}

// As seen from above.
void take(PlotJob::Page &page, const NamedView &view)
{
    const geometry::Box box = view.seen.box(view.width);
    page.lower = {box.minimum.x, box.minimum.y, 0};
    page.upper = {box.maximum.x, box.maximum.y, 0};
}

// What the screen shows. Its size is that of the window in pixels.
void takeDisplay(const Session &session, PlotJob::Page &page)
{
    const Point screen = session.point(u"SCREENSIZE");
    const ViewState view = viewState(session);
    take(page, {view, view.height * screen.x / screen.y});
}

void takeView(Context &context, const std::u16string &name, PlotJob::Page &page)
{
    const RecordId view = findRecord(context, drawing::known::View, name);
    if (view == drawing::NoRecord)
        throw CommandError{u"Cannot find view " + name + u"."};
    take(page, namedView(context.database().groups(view)));
}

Command askWindow(Context &context, PlotJob::Page &page)
{
    const WorkPlane plane(context.session());
    const auto first = co_await context.ask().point({u"Enter lower left corner of window: ", {}, Enter::Refused});
    const auto other =
        co_await context.ask().corner({u"Enter upper right corner of window: ", {}, Enter::Refused, first.value});
    const Vector a = plane.world(first.value), b = plane.world(other.value);
    page.lower = {std::min(a.x, b.x), std::min(a.y, b.y), 0};
    page.upper = {std::max(a.x, b.x), std::max(a.y, b.y), 0};
}

Command askArea(Context &context, bool isModel, PlotJob::Page &page)
{
    const auto area = co_await context.ask().keyword(
        isModel ? Question{u"Enter plot area [Display/Extents/Limits/View/Window] <Display>: ",
                           u"Display Extents Limits View Window"}
                : Question{u"Enter plot area [Display/Extents/Layout/View/Window] <Layout>: ",
                           u"Display Extents Layout View Window"});
    page.area = PlotJob::Area::Window;
    if (area.is(u"Extents")) {
        page.area = PlotJob::Area::Extents;
    } else if (area.is(u"Layout") || (area.isNothing() && !isModel)) {
        page.area = PlotJob::Area::Layout;
    } else if (area.is(u"Limits")) {
        page.lower = context.session().point(u"LIMMIN");
        page.upper = context.session().point(u"LIMMAX");
    } else if (area.is(u"View")) {
        const auto name = co_await context.ask().string({u"Enter view name: ", {}, Enter::Refused});
        takeView(context, name.value, page);
    } else if (area.is(u"Window")) {
        co_await askWindow(context, page);
    } else {
        takeDisplay(context.session(), page);
    }
    if (page.area == PlotJob::Area::Window && !(page.upper.x > page.lower.x && page.upper.y > page.lower.y))
        throw CommandError{u"The plot area is empty."};
}

// "1:50" and "1=50" are paper and drawing, a number alone is of the paper; none: it is no scale.
std::optional<double> scaleOf(const std::u16string &typed, const Session &session)
{
    const std::size_t mark = typed.find_first_of(u"=:");
    const std::optional<double> paper = session.distanceOf(typed.substr(0, mark));
    const std::optional<double> units =
        mark == typed.npos ? std::optional(1.0) : session.distanceOf(typed.substr(mark + 1));
    if (!paper || !units || !(*paper > 0) || !(*units > 0))
        return std::nullopt;
    return *paper / *units;
}

Command askScale(Context &context, double unit, PlotJob::Page &page)
{
    const std::u16string prompt = std::u16string(u"Enter plot scale (Plotted ") +
                                  (unit == 1 ? u"Millimeters" : u"Inches") + u"=Drawing Units) or [Fit] <Fit>: ";
    for (;;) {
        const auto answer = co_await context.ask().any(InputKind::String, {prompt, u"Fit"});
        if (!answer.hasValue())
            co_return;
        const auto *text = std::get_if<std::u16string>(&answer.value);
        const std::optional<double> number =
            text ? scaleOf(*text, context.session()) : numberOf(answer.value, context.session());
        if (number && *number > 0 && std::isfinite(*number)) {
            page.scale = *number * unit;
            co_return;
        }
        context.session().print(u"\nRequires a scale such as 1:50, or Fit.\n");
    }
}

Command askOffset(Context &context, double unit, PlotJob::Page &page)
{
    const auto offset = co_await context.ask().point({u"Enter plot offset (x,y) or [Center] <0.00,0.00>: ", u"Center"});
    if (offset.is(u"Center"))
        page.offset = PlotJob::Offset::Centred;
    page.offsetX = offset.value.x * unit;
    page.offsetY = offset.value.y * unit;
}

// The questions that make no difference here are asked all the same: programs answer them.
Command askAppearance(Context &context, bool isModel)
{
    co_await askYes(context, u"Plot with plot styles? [Yes/No] <Yes>: ", true);
    co_await askListed(context, u"Enter plot style table name or [?] (enter . for none) <>: ", {}, {});
    co_await askYes(context, u"Plot with lineweights? [Yes/No] <Yes>: ", true);
    if (isModel) {
        co_await context.ask().string({u"Enter shade plot setting [As displayed/legacy Wireframe/legacy Hidden/Visual "
                                       u"styles/Rendered] <As displayed>: "});
        co_return;
    }
    co_await askYes(context, u"Scale lineweights with plot scale? [Yes/No] <No>: ", false);
    co_await askYes(context, u"Plot paper space first? [Yes/No] <No>: ", false);
    co_await askYes(context, u"Hide paperspace objects? [Yes/No] <No>: ", false);
}

Task<PlotJob::Page> askPage(Context &context, bool isModel)
{
    PlotJob::Page page;
    const PaperSize paper = co_await askPaper(context);
    const auto units = co_await context.ask().keyword(
        {u"Enter paper units [Inches/Millimeters] <Millimeters>: ", u"Inches Millimeters"});
    const double unit = units.is(u"Inches") ? MillimetresPerInch : 1;
    const auto orientation = co_await context.ask().keyword(
        {u"Enter drawing orientation [Portrait/Landscape] <Landscape>: ", u"Portrait Landscape"});
    page.width = orientation.is(u"Portrait") ? paper.width : paper.height;
    page.height = orientation.is(u"Portrait") ? paper.height : paper.width;
    co_await askYes(context, u"Plot upside down? [Yes/No] <No>: ", false);
    co_await askArea(context, isModel, page);
    co_await askScale(context, unit, page);
    co_await askOffset(context, unit, page);
    co_await askAppearance(context, isModel);
    co_return page;
}

std::u16string standardPath(Context &context, const std::u16string &layout, const QString &ending)
{
    const QString name = QFileInfo(QString::fromStdU16String(context.session().text(u"DWGNAME"))).completeBaseName();
    return context.session().text(u"DWGPREFIX") +
           QStringLiteral("%1-%2.%3").arg(name, QString::fromStdU16String(layout), ending).toStdU16String();
}

// A device that makes files asks for one at once; others first ask whether there shall be one.
Task<std::u16string> askPath(Context &context, const std::u16string layout, const QString device)
{
    if (device.isEmpty() && !co_await askYes(context, u"Write the plot to a file [Yes/No] <N>: ", false))
        throw CommandError{u"There is no printer here. Plot to a file."};
    const QString ending = device.isEmpty() ? QStringLiteral("pdf") : device;
    const std::u16string standard = standardPath(context, layout, ending);
    const std::u16string prompt = u"Enter file name <" + standard + u">: ";
    const auto name = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
    if (name.isNothing())
        co_return standard;
    const QString suffix = QFileInfo(QString::fromStdU16String(name.value)).suffix();
    const bool isKnown = !endingOf(suffix.toStdU16String()).isEmpty();
    co_return isKnown ? name.value : name.value + u'.' + ending.toStdU16String();
}

} // namespace

Command plot(Context &context)
{
    const bool isDetailed = co_await askYes(context, u"Detailed plot configuration? [Yes/No] <No>: ", false);
    PlotJob job;
    job.layout = co_await askLayout(context);
    if (!isDetailed)
        co_await askListed(context, u"Enter a page setup name <>: ", {}, {});
    const QString device = co_await askDevice(context);
    if (isDetailed)
        job.page = co_await askPage(context, drawing::isModelName(job.layout));
    job.path = co_await askPath(context, job.layout, device);
    co_await askYes(context, u"Save changes to page setup [Yes/No]? <N>: ", false);
    if (!co_await askYes(context, u"Proceed with plot [Yes/No] <Y>: ", true))
        co_return;
    std::u16string failure;
    if (!context.session().plot(job, failure))
        throw CommandError{failure};
    context.say(u"Plotted as " + job.path);
}

} // namespace commands
