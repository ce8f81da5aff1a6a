// OFFSET: parallel curves at a distance or through a point.

#include "host/commands/Commands.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/Offset.h"

namespace commands {

namespace {

struct OffsetSettings
{
    double distance = 0; // 0: through a point
    bool erases = false;
};

Task<OffsetSettings> askSettings(Context &context)
{
    OffsetSettings settings;
    for (;;) {
        const double last = context.session().real(u"OFFSETDIST"); // negative: through a point
        const std::u16string standard = last > 0 ? context.session().distanceText(last) : u"Through";
        const std::u16string prompt = u"Specify offset distance or [Through/Erase/Layer] <" + standard + u">: ";
        const auto answer = co_await context.ask().distance({prompt, u"Through Erase"}, Positive);
        if (answer.is(u"Erase")) {
            const auto erases =
                co_await context.ask().keyword({u"Erase source object after offsetting? [Yes/No] <No>: ", u"Yes No"});
            settings.erases = erases.is(u"Yes");
            continue;
        }
        if (answer.hasValue())
            settings.distance = answer.value;
        else
            settings.distance = answer.is(u"Through") || last < 0 ? 0 : last;
        context.session().assign(u"OFFSETDIST", settings.distance > 0 ? settings.distance : -1.0);
        co_return settings;
    }
}

} // namespace

Command offset(Context &context)
{
    const OffsetSettings settings = co_await askSettings(context);
    const WorkPlane plane(context.session());
    for (;;) {
        const auto picked =
            co_await context.ask().entity({u"Select object to offset or [Exit/Undo] <Exit>: ", u"Exit"});
        if (!picked.hasValue())
            co_return;
        const RecordId entity = picked.value.entity;
        const bool isThrough = settings.distance == 0;
        const auto side = co_await context.ask().point(
            {isThrough ? u"Specify through point or [Exit/Multiple/Undo] <Exit>: "
                       : u"Specify point on side to offset or [Exit/Multiple/Undo] <Exit>: ",
             u"Exit"});
        if (!side.hasValue())
            co_return;
        const Vector place = plane.world(side.value);
        const double distance =
            isThrough ? drawing::offsetThrough(context.drawing(), entity, place).value_or(0) : settings.distance;
        if (drawing::offsetEntity(context.drawing(), entity, distance, place) == drawing::NoRecord)
            context.session().print(u"\nCannot offset that object.\n");
        else if (settings.erases)
            context.database().erase(entity);
    }
}

} // namespace commands
