// LIMITS: the corners of the area that is drawn in.

#include "host/commands/Commands.h"

namespace commands {

namespace {

std::u16string cornerText(const Session &session, const Point &corner)
{
    return session.distanceText(corner.x) + u',' + session.distanceText(corner.y);
}

void setCorner(Context &context, std::u16string_view variable, const Reply<Point> &corner)
{
    if (corner.hasValue())
        context.session().set(variable, Point{corner.value.x, corner.value.y, 0, 2});
}

} // namespace

Command limits(Context &context)
{
    Session &session = context.session();
    context.say(u"Reset Model space limits:");
    const std::u16string lowerPrompt =
        u"Specify lower left corner or [ON/OFF] <" + cornerText(session, session.point(u"LIMMIN")) + u">: ";
    const auto lower = co_await context.ask().point({lowerPrompt, u"ON OFF"});
    if (lower.is(u"ON") || lower.is(u"OFF")) {
        session.set(u"LIMCHECK", lower.is(u"ON") ? 1 : 0);
        co_return;
    }
    const std::u16string upperPrompt =
        u"Specify upper right corner <" + cornerText(session, session.point(u"LIMMAX")) + u">: ";
    const auto upper = co_await context.ask().point({upperPrompt});
    setCorner(context, u"LIMMIN", lower);
    setCorner(context, u"LIMMAX", upper);
}

} // namespace commands
