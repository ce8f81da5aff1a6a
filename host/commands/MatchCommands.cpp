// Commands over properties and names: MATCHPROP, RENAME, and DELAY.

#include "host/commands/Commands.h"
#include "host/commands/Renaming.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"

#include <array>

namespace commands {

using namespace drawing::known;

namespace {

constexpr std::array matched{drawing::groupcode::Layer, 6, 48, 62, 370, 420, 430, 440};

struct Kind
{
    std::u16string_view keyword;
    drawing::NameId table;
    std::u16string_view prompt;
};

constexpr std::array<Kind, 6> kinds = {{
    {u"Block", Block, u"block"},
    {u"Dimstyle", DimensionStyle, u"dimension style"},
    {u"LAyer", Layer, u"layer"},
    {u"LType", Linetype, u"linetype"},
    {u"textStyle", Style, u"text style"},
    {u"Ucs", UserCoordinates, u"UCS"},
}};

} // namespace

Command matchProperties(Context &context)
{
    const auto source = co_await context.ask().entity({u"Select source object: ", {}, Enter::Refused});
    const drawing::GroupList from = context.database().groups(source.value.entity);
    const Selection entities = co_await selectObjects(context);
    for (const RecordId entity : entities) {
        drawing::GroupList groups = context.database().groups(entity);
        for (const int code : matched) {
            if (code != drawing::groupcode::Layer)
                drawing::removeGroups(groups, code);
            if (const drawing::Group *group = drawing::findGroup(from, code))
                drawing::setGroupBehindLayer(groups, *group);
        }
        context.database().replace(entity, groups);
    }
}

Command renameObject(Context &context)
{
    const auto choice =
        co_await context.ask().keyword({u"Enter object type to rename [Block/Dimstyle/LAyer/LType/textStyle/Ucs]: ",
                                        u"Block Dimstyle LAyer LType textStyle Style Ucs", Enter::Refused});
    const std::u16string keyword = choice.is(u"Style") ? u"textStyle" : choice.keyword;
    for (const Kind &kind : kinds) {
        if (kind.keyword != keyword)
            continue;
        const std::u16string oldPrompt = u"Enter old " + std::u16string(kind.prompt) + u" name: ";
        const auto old = co_await context.ask().string({oldPrompt, {}, Enter::Refused});
        const std::u16string newPrompt = u"Enter new " + std::u16string(kind.prompt) + u" name: ";
        const auto name = co_await context.ask().string({newPrompt, {}, Enter::Refused});
        const RecordId record = findRecord(context, kind.table, old.value);
        if (record == drawing::NoRecord)
            throw CommandError{u"Cannot find " + std::u16string(kind.prompt) + u" \"" + old.value + u"\"."};
        renameRecord(context, kind.prompt, record, name.value);
    }
}

// A script's pause to look at something; there is nothing to look at here.
Command delay(Context &context)
{
    co_await context.ask().integer({u"Enter delay time in milliseconds: ", {}, Enter::Refused}, {0, 32767});
}

} // namespace commands
