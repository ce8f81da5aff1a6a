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
        const std::u16string prompt = u"Specify offset distance or [Through/Erase] <" + standard + u">: ";
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

// The parallel curve on the side of a place, or through it; NoRecord, which is said, when there is none.
RecordId addOffset(Context &context, RecordId entity, double distance, const Vector &place)
{
    const bool isThrough = distance == 0;
    const double apart = isThrough ? drawing::offsetThrough(context.drawing(), entity, place).value_or(0) : distance;
    const RecordId added = drawing::offsetEntity(context.drawing(), entity, apart, place);
    if (added == drawing::NoRecord)
        context.session().print(u"\nCannot offset that object.\n");
    return added;
}

// Until Enter: each place gives one more curve, beside the one before. Whether there was one.
Task<bool> addMore(Context &context, const WorkPlane &plane, const RecordId original, const OffsetSettings settings)
{
    RecordId newest = original;
    for (;;) {
        const auto side = co_await context.ask().point(
            {settings.distance == 0 ? u"Specify through point or [Exit] <next object>: "
                                    : u"Specify point on side to offset or [Exit] <next object>: ",
             u"Exit"});
        if (!side.hasValue())
            co_return newest != original;
        const RecordId added = addOffset(context, newest, settings.distance, plane.world(side.value));
        newest = added != drawing::NoRecord ? added : newest;
    }
}

} // namespace

Command offset(Context &context)
{
    const OffsetSettings settings = co_await askSettings(context);
    const WorkPlane plane(context.session());
    for (;;) {
        const auto picked = co_await context.ask().entity({u"Select object to offset or [Exit] <Exit>: ", u"Exit"});
        if (!picked.hasValue())
            co_return;
        const RecordId entity = picked.value.entity;
        const auto side = co_await context.ask().point(
            {settings.distance == 0 ? u"Specify through point or [Exit/Multiple] <Exit>: "
                                    : u"Specify point on side to offset or [Exit/Multiple] <Exit>: ",
             u"Exit Multiple"});
        bool isOffset = false;
        if (side.is(u"Multiple"))
            isOffset = co_await addMore(context, plane, entity, settings);
        else if (side.hasValue())
            isOffset = addOffset(context, entity, settings.distance, plane.world(side.value)) != drawing::NoRecord;
        else
            co_return;
        if (isOffset && settings.erases)
            context.database().erase(entity);
    }
}

} // namespace commands
