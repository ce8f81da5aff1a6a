#include "host/commands/CoordinateSystems.h"

#include "host/commands/TableRecords.h"

namespace commands {

using drawing::known::UserCoordinates;

namespace {

Command list(Context &context)
{
    const auto names = co_await context.ask().string({u"Enter UCS name(s) to list <*>: "});
    for (const RecordId system : recordsLike(context, UserCoordinates, names.hasValue() ? names.value : u"*"))
        context.session().print(u"\n\"" + context.database().name(system) + u'"');
    context.session().print(u"\n");
}

} // namespace

std::string headerNameOf(bool isPaper, std::u16string_view variable)
{
    return (isPaper ? "$P" : "$") + std::string(variable.begin(), variable.end());
}

RecordId namedSystem(Context &context, const std::u16string &name)
{
    const RecordId system = findRecord(context, UserCoordinates, name);
    if (system == drawing::NoRecord)
        throw CommandError{u"Cannot find UCS \"" + name + u"\"."};
    return system;
}

geometry::Matrix systemToWorld(Context &context, RecordId system)
{
    enum Code : int { OriginCode = 10, XDirectionCode, YDirectionCode };
    const drawing::GroupList groups = context.database().groups(system);
    const geometry::Vector x = geometry::normalized(drawing::placeOf(groups, XDirectionCode), {1, 0, 0});
    const geometry::Vector y = geometry::normalized(drawing::placeOf(groups, YDirectionCode), {0, 1, 0});
    return {x, y, geometry::cross(x, y), drawing::placeOf(groups, OriginCode)};
}

Task<geometry::Matrix> askNamedSystem(Context &context)
{
    for (;;) {
        const auto name = co_await context.ask().string({u"Enter name of UCS or [?]: ", {}, Enter::Refused});
        if (name.value != u"?")
            co_return systemToWorld(context, namedSystem(context, name.value));
        co_await list(context);
    }
}

} // namespace commands
