#include "host/drawing/Layouts.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"

namespace drawing {

namespace {

constexpr int TabCode = 71;
constexpr std::u16string_view ModelName = u"Model";

// The plot settings in front have the same codes as the layout's own part.
void readOwnPart(const Database &database, Layout &layout)
{
    GroupReader reader = database.reader(layout.object);
    bool isOwn = false;
    for (Item item; reader.next(item);) {
        if (item.code == groupcode::Subclass)
            isOwn = item.value == "AcDbLayout";
        else if (isOwn && item.code == TabCode)
            layout.tab = item.integer;
        else if (isOwn && item.code == groupcode::Owner)
            layout.blockRecord = database.find({item.handle});
    }
}

} // namespace

std::vector<Layout> layouts(const Database &database)
{
    std::vector<Layout> found;
    const RecordId root = namedObjects(database);
    const RecordId dictionary = root != NoRecord ? findEntry(database, root, u"ACAD_LAYOUT") : NoRecord;
    if (dictionary == NoRecord)
        return found;
    for (const DictionaryEntry &entry : dictionaryEntries(database, dictionary)) {
        const RecordId object = database.find(entry.object);
        if (object == NoRecord || database.record(object).isGone())
            continue;
        found.push_back({entry.name, object});
        readOwnPart(database, found.back());
    }
    return found;
}

bool isModelName(std::u16string_view name)
{
    return folded(name) == folded(ModelName);
}

std::optional<Layout> findLayout(const Database &database, std::u16string_view name)
{
    const std::u16string wanted = folded(name);
    if (!isModelName(name))
        for (const Layout &layout : layouts(database))
            if (folded(layout.name) == wanted)
                return layout;
    return std::nullopt;
}

std::optional<Layout> activeLayout(const Drawing &drawing)
{
    const RecordId active = drawing.tables().find(known::BlockRecord, PaperSpace);
    for (const Layout &layout : layouts(drawing.database()))
        if (layout.blockRecord != NoRecord && layout.blockRecord == active)
            return layout;
    return std::nullopt;
}

} // namespace drawing
