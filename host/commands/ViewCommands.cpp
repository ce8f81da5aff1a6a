// What is seen: ZOOM, PAN, PLAN, REGEN. The view is kept in VIEWCTR and VIEWSIZE; windows look there.

#include "host/commands/Commands.h"
#include "host/commands/Picking.h"
#include "host/commands/SelectObjects.h"
#include "host/drawing/selection/EntityIndex.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace commands {

using geometry::Box;

namespace {

constexpr std::size_t MostViews = 10;

Memory::View currentView(const Session &session)
{
    return {session.point(u"VIEWCTR"), session.real(u"VIEWSIZE")};
}

void show(Context &context, const Memory::View &view)
{
    context.session().assign(u"VIEWCTR", view.centre);
    context.session().assign(u"VIEWSIZE", view.height);
}

void change(Context &context, const Memory::View &view)
{
    std::vector<Memory::View> &views = context.memory().views;
    views.push_back(currentView(context.session()));
    if (views.size() > MostViews)
        views.erase(views.begin());
    show(context, view);
}

// So that the whole rectangle is seen in the window's proportions.
void showRectangle(Context &context, double left, double bottom, double right, double top)
{
    const Point screen = context.session().point(u"SCREENSIZE");
    const double height = std::max(top - bottom, (right - left) * screen.y / screen.x);
    if (height > 0)
        change(context, {{(left + right) / 2, (bottom + top) / 2, 0}, height});
}

Box extentsOfAll(Context &context, const Selection &entities)
{
    Box box;
    selection::EntityIndex &index = context.session().entityIndex();
    for (const RecordId entity : entities)
        box.add(index.extentsOf(entity));
    return box;
}

void showBox(Context &context, const Box &box)
{
    if (!box.isEmpty())
        showRectangle(context, box.minimum.x, box.minimum.y, box.maximum.x, box.maximum.y);
}

void showExtents(Context &context, bool withLimits)
{
    Box box = extentsOfAll(context, thawedEntities(context.session()));
    if (!box.isEmpty()) {
        context.session().assign(u"EXTMIN", Point{box.minimum.x, box.minimum.y, box.minimum.z});
        context.session().assign(u"EXTMAX", Point{box.maximum.x, box.maximum.y, box.maximum.z});
    }
    if (withLimits || box.isEmpty()) {
        box.add(geometry::vectorOf(context.session().point(u"LIMMIN")));
        box.add(geometry::vectorOf(context.session().point(u"LIMMAX")));
    }
    showBox(context, box);
}

// "2", "2x" and "2xp" enlarge; none for other texts.
std::optional<double> scaleFactor(const Input &input, const Session &session)
{
    const auto *text = std::get_if<std::u16string>(&input);
    if (!text)
        return std::holds_alternative<Point>(input) ? std::nullopt : numberOf(input, session);
    QString number = QString::fromStdU16String(*text).toLower();
    if (number.endsWith(QStringLiteral("xp")))
        number.chop(2);
    else if (number.endsWith(u'x'))
        number.chop(1);
    return session.distanceOf(number.toStdU16String());
}

void enlarge(Context &context, const Input &answer)
{
    const std::optional<double> factor = scaleFactor(answer, context.session());
    if (!factor || !(*factor > 0))
        throw CommandError{u"Requires a distance, numberX, or option keyword."};
    const Memory::View view = currentView(context.session());
    change(context, {view.centre, view.height / *factor});
}

// A height of what is seen, or with an x how much larger than now.
Command askHeight(Context &context, const Point centre)
{
    const std::u16string prompt = u"Enter magnification or height <" +
                                  context.session().distanceText(context.session().real(u"VIEWSIZE")) + u">: ";
    const auto answer = co_await context.ask().any(InputKind::Distance, {prompt});
    const double now = context.session().real(u"VIEWSIZE");
    if (answer.isNothing())
        co_return change(context, {centre, now});
    const auto *text = std::get_if<std::u16string>(&answer.value);
    const bool isFactor = text && (text->ends_with(u'x') || text->ends_with(u'X'));
    const std::optional<double> number = scaleFactor(answer.value, context.session());
    if (!number || !(*number > 0))
        throw CommandError{u"Requires a distance or numberX."};
    change(context, {centre, isFactor ? now / *number : *number});
}

Command askWindow(Context &context, const Point first)
{
    const auto opposite = co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, first});
    const Point second = opposite.value;
    showRectangle(context, std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x),
                  std::max(first.y, second.y));
}

void showPrevious(Context &context)
{
    std::vector<Memory::View> &views = context.memory().views;
    if (views.empty())
        throw CommandError{u"No previous view saved."};
    show(context, views.back());
    views.pop_back();
}

} // namespace

Command zoom(Context &context)
{
    const auto choice = co_await context.ask().any(
        InputKind::Point, {u"Specify corner of window, enter a scale factor (nX or nXP), or\n"
                           u"[All/Center/Dynamic/Extents/Previous/Scale/Window/Object] <real time>: ",
                           u"All Center Dynamic Extents Left Previous Scale Window Object Vmax"});
    if (choice.hasValue()) {
        if (const std::optional<Point> corner = pointOf(choice.value, context.session()))
            co_await askWindow(context, *corner);
        else
            enlarge(context, choice.value);
    } else if (choice.is(u"All") || choice.is(u"Extents")) {
        showExtents(context, choice.is(u"All"));
    } else if (choice.is(u"Center")) {
        const auto centre = co_await context.ask().point({u"Specify center point: ", {}, Enter::Refused});
        co_await askHeight(context, centre.value);
    } else if (choice.is(u"Previous")) {
        showPrevious(context);
    } else if (choice.is(u"Scale")) {
        const auto factor = co_await context.ask().any(InputKind::Distance, {u"Enter a scale factor (nX or nXP): "});
        if (factor.hasValue())
            enlarge(context, factor.value);
    } else if (choice.is(u"Window")) {
        const auto corner = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
        co_await askWindow(context, corner.value);
    } else if (choice.is(u"Object")) {
        const Selection entities = co_await selectObjects(context, Purpose::Look);
        showBox(context, extentsOfAll(context, entities));
    }
}

Command pan(Context &context)
{
    const auto base = co_await context.ask().point({u"Specify base point or displacement: ", {}, Enter::Refused});
    const auto second = co_await context.ask().point({u"Specify second point: ", {}, Enter::Allowed, base.value});
    Memory::View view = currentView(context.session());
    const Point by =
        second.hasValue() ? Point{second.value.x - base.value.x, second.value.y - base.value.y, 0} : base.value;
    view.centre.x -= by.x;
    view.centre.y -= by.y;
    change(context, view);
}

// The view straight from above, of the user's or the world's coordinate system.
Command plan(Context &context)
{
    co_await context.ask().keyword({u"Enter an option [Current ucs/Ucs/World] <Current>: ", u"Current Ucs World"});
    context.session().assign(u"VIEWDIR", Point{0, 0, 1});
    context.session().assign(u"VIEWTWIST", 0.0);
    showExtents(context, false);
}

// What is seen always follows from the drawing, and texts and drawings are seen together: nothing is to be made anew,
// and no screen to be changed.
Command changeNothing(Context &)
{
    co_return;
}

} // namespace commands
