// -PURGE: removes table records and blocks that nothing uses.

#include "host/commands/Commands.h"
#include "host/commands/TableRecords.h"
#include "host/commands/Usage.h"
#include "host/drawing/Blocks.h"

#include <QString>

#include <array>

namespace commands {

namespace {

using namespace drawing::known;

struct Kind
{
    std::u16string_view keyword;
    drawing::NameId table;
    std::u16string_view singular;
};

constexpr std::array<Kind, 6> kinds = {{
    {u"Blocks", Block, u"block"},
    {u"Dimstyles", DimensionStyle, u"dimension style"},
    {u"LAyers", Layer, u"layer"},
    {u"LTypes", Linetype, u"linetype"},
    {u"textSTyles", Style, u"text style"},
    {u"Regapps", Application, u"registered application"},
}};

void remove(Context &context, RecordId record)
{
    drawing::Database &database = context.database();
    if (database.record(record).kind == drawing::RecordKind::BlockStart)
        drawing::eraseBlock(database, context.tables(), record);
    else
        database.erase(record);
}

// Once over all records of the kind; how many went.
Task<std::size_t> purgeOnce(Context &context, const Kind kind, const std::u16string names, bool verifies)
{
    std::size_t removed = 0;
    const Usage usage(context);
    for (const RecordId record : recordsLike(context, kind.table, names)) {
        if (usage.isUsed(kind.table, record))
            continue;
        const std::u16string name = context.database().name(record);
        if (verifies) {
            const std::u16string prompt =
                u"Purge " + std::u16string(kind.singular) + u" \"" + name + u"\"? [Yes/No] <N>: ";
            const auto answer = co_await context.ask().keyword({prompt, u"Yes No"});
            if (!answer.is(u"Yes"))
                continue;
        }
        remove(context, record);
        context.say(u"Deleting " + std::u16string(kind.singular) + u" \"" + name + u"\".");
        ++removed;
    }
    co_return removed;
}

} // namespace

// What was used by something that went is unused now, so All goes over the kinds again until nothing is left to go.
Command purge(Context &context)
{
    const auto choice = co_await context.ask().keyword(
        {u"Enter type of unused objects to purge [Blocks/Dimstyles/LAyers/LTypes/textSTyles/Regapps/All]: ",
         u"Blocks Dimstyles LAyers LTypes textSTyles STyles Regapps All"});
    if (choice.isNothing())
        co_return;
    const std::u16string keyword = choice.is(u"STyles") ? u"textSTyles" : choice.keyword;
    const auto list = co_await context.ask().string({u"Enter name(s) to purge <*>: "});
    const std::u16string names = list.hasValue() && !list.value.empty() ? list.value : u"*";
    const auto answer = co_await context.ask().keyword({u"Verify each name to be purged? [Yes/No] <Y>: ", u"Yes No"});
    const bool verifies = !answer.is(u"No");
    std::size_t all = 0, removed = 0;
    do {
        removed = 0;
        for (const Kind &kind : kinds)
            if (keyword == u"All" || keyword == kind.keyword) {
                const std::size_t gone = co_await purgeOnce(context, kind, names, verifies);
                removed += gone;
            }
        all += removed;
    } while (keyword == u"All" && removed > 0);
    if (all == 0)
        context.say(u"No unreferenced objects found.");
}

} // namespace commands
