// What is seen: ZOOM, PAN, PLAN, REGEN.

#include "host/commands/Commands.h"
#include "host/commands/CoordinateSystems.h"
#include "host/commands/Picking.h"
#include "host/commands/PlanView.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/geometry/Extents.h"
#include "host/drawing/selection/EntityIndex.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace commands {

using geometry::Box;
using geometry::Matrix;

namespace {

constexpr std::size_t MostViews = 10;

void change(Context &context, const ViewState &view)
{
    std::vector<ViewState> &views = context.memory().views;
    views.push_back(viewState(context.session()));
    if (views.size() > MostViews)
        views.erase(views.begin());
    show(context.session(), view);
}

// So that the whole box, in the display's coordinates, is seen in the window's proportions; of one without a size, and
// of an empty one, the place and size of the view stay.
void changeToBox(Context &context, ViewState view, const Box &box)
{
    const Point screen = context.session().point(u"SCREENSIZE");
    const Vector size = box.maximum - box.minimum;
    const double height = std::max(size.y, size.x * screen.y / screen.x);
    if (!box.isEmpty() && height > 0 && std::isfinite(height)) {
        view.centre = view.displayToWorld().place({box.minimum.x + size.x / 2, box.minimum.y + size.y / 2, 0});
        view.height = height;
    }
    change(context, view);
}

Box extentsOfAll(Context &context, const Selection &entities)
{
    Box box;
    selection::EntityIndex &index = context.session().entityIndex();
    for (const RecordId entity : entities)
        box.add(index.extentsOf(entity));
    return box;
}

// The same in the display's coordinates.
Box seenExtents(Context &context, const ViewState &view, const Selection &entities)
{
    const Matrix toDisplay = geometry::inverse(view.displayToWorld());
    if (toDisplay == Matrix())
        return extentsOfAll(context, entities);
    Box box;
    for (const RecordId entity : entities) {
        context.session().pulse();
        box.add(geometry::extentsOf(context.drawing(), entity, toDisplay).value_or(Box()));
    }
    return box;
}

void addLimits(const Session &session, const ViewState &view, Box &box)
{
    const Matrix toDisplay = geometry::inverse(view.displayToWorld());
    const Point lower = session.point(u"LIMMIN"), upper = session.point(u"LIMMAX");
    for (const Point &corner : rectangle(lower, upper))
        box.add(toDisplay.place(geometry::vectorOf(corner)));
}

void showExtents(Context &context, const ViewState &view, bool withLimits)
{
    const Selection entities = thawedEntities(context.session());
    Box box = seenExtents(context, view, entities);
    if (withLimits || box.isEmpty())
        addLimits(context.session(), view, box);
    changeToBox(context, view, box);
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

bool isScale(const Input &input, const Session &session)
{
    return scaleFactor(input, session).value_or(0) > 0;
}

std::u16string_view complaintAboutScale(const Input &input, const Session &session)
{
    return isScale(input, session) ? u"" : u"Requires a distance or numberX.";
}

std::u16string_view complaintAboutZoom(const Input &input, const Session &session)
{
    const bool fits = pointOf(input, session) || isScale(input, session);
    return fits ? u"" : u"Requires a distance, numberX, or option keyword.";
}

void enlarge(Context &context, const Input &answer)
{
    ViewState view = viewState(context.session());
    view.height /= *scaleFactor(answer, context.session());
    change(context, view);
}

// A height of what is seen, or with an x how much larger than now.
Command askHeight(Context &context, const Point centre)
{
    ViewState view = viewState(context.session());
    view.centre = WorkPlane(context.session()).world(centre);
    const std::u16string prompt =
        u"Enter magnification or height <" + context.session().distanceText(view.height) + u">: ";
    const auto answer = co_await context.ask().any(InputKind::Distance, {prompt}, complaintAboutScale);
    if (answer.isNothing())
        co_return change(context, view);
    const auto *text = std::get_if<std::u16string>(&answer.value);
    const bool isFactor = text && (text->ends_with(u'x') || text->ends_with(u'X'));
    const double number = *scaleFactor(answer.value, context.session());
    view.height = isFactor ? view.height / number : number;
    change(context, view);
}

Command askWindow(Context &context, const Point first)
{
    const auto opposite = co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, first});
    const ViewState view = viewState(context.session());
    const Matrix toDisplay = geometry::inverse(view.displayToWorld());
    const WorkPlane plane(context.session());
    Box box;
    box.add(toDisplay.place(plane.world(first)));
    box.add(toDisplay.place(plane.world(opposite.value)));
    changeToBox(context, view, box);
}

void showPrevious(Context &context)
{
    std::vector<ViewState> &views = context.memory().views;
    if (views.empty())
        throw CommandError{u"No previous view saved."};
    show(context.session(), views.back());
    views.pop_back();
}

// The coordinate system to look at from above.
Task<Matrix> askPlane(Context &context)
{
    const auto option =
        co_await context.ask().keyword({u"Enter an option [Current ucs/Ucs/World] <Current>: ", u"Current Ucs World"});
    if (option.is(u"World"))
        co_return Matrix();
    if (!option.is(u"Ucs"))
        co_return WorkPlane(context.session()).toWorld();
    const Matrix named = co_await askNamedSystem(context);
    co_return named;
}

} // namespace

Command zoom(Context &context)
{
    const auto choice =
        co_await context.ask().any(InputKind::Point,
                                   {u"Specify corner of window, enter a scale factor (nX or nXP), or\n"
                                    u"[All/Center/Dynamic/Extents/Previous/Scale/Window/Object] <real time>: ",
                                    u"All Center Dynamic Extents Left Previous Scale Window Object Vmax"},
                                   complaintAboutZoom);
    if (choice.hasValue()) {
        if (const std::optional<Point> corner = pointOf(choice.value, context.session()))
            co_await askWindow(context, *corner);
        else
            enlarge(context, choice.value);
    } else if (choice.is(u"All") || choice.is(u"Extents")) {
        showExtents(context, viewState(context.session()), choice.is(u"All"));
    } else if (choice.is(u"Center")) {
        const auto centre = co_await context.ask().point({u"Specify center point: ", {}, Enter::Refused});
        co_await askHeight(context, centre.value);
    } else if (choice.is(u"Previous")) {
        showPrevious(context);
    } else if (choice.is(u"Scale")) {
        const auto factor = co_await context.ask().any(InputKind::Distance, {u"Enter a scale factor (nX or nXP): "},
                                                       complaintAboutScale);
        if (factor.hasValue())
            enlarge(context, factor.value);
    } else if (choice.is(u"Window")) {
        const auto corner = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
        co_await askWindow(context, corner.value);
    } else if (choice.is(u"Object")) {
        const Selection entities = co_await selectObjects(context, Purpose::Look);
        const ViewState view = viewState(context.session());
        changeToBox(context, view, seenExtents(context, view, entities));
    }
}

Command pan(Context &context)
{
    const auto base = co_await context.ask().point({u"Specify base point or displacement: ", {}, Enter::Refused});
    const auto second = co_await context.ask().point({u"Specify second point: ", {}, Enter::Allowed, base.value});
    const Point by =
        second.hasValue() ? Point{second.value.x - base.value.x, second.value.y - base.value.y, 0} : base.value;
    ViewState view = viewState(context.session());
    view.centre = view.centre - WorkPlane(context.session()).toWorld().direction(geometry::vectorOf(by));
    change(context, view);
}

void showPlan(Context &context, const Matrix &plane)
{
    ViewState view = viewState(context.session());
    view.lookDownOn(plane);
    showExtents(context, view, false);
}

Command plan(Context &context)
{
    const Matrix plane = co_await askPlane(context);
    showPlan(context, plane);
}

// What is seen always follows from the drawing, and texts and drawings are seen together: nothing is to be made anew,
// and no screen to be changed.
Command changeNothing(Context &)
{
    co_return;
}

} // namespace commands
