// -STYLE: makes and changes text styles, and makes one the current.

#include "host/commands/Commands.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"

namespace commands {

using drawing::integerGroup;
using drawing::realGroup;
using drawing::textGroup;
using drawing::known::Style;

namespace {

enum Code : int {
    FontCode = 3,
    BigFontCode = 4,
    HeightCode = 40,
    WidthCode = 41,
    LastHeightCode = 42,
    ObliqueCode = 50,
    GenerationCode = 71
};

constexpr std::int64_t Backwards = 2, UpsideDown = 4;

Task<bool> askYes(Context &context, std::u16string_view prompt)
{
    const auto answer = co_await context.ask().keyword({prompt, u"Yes No"});
    co_return answer.is(u"Yes");
}

RecordId styleRecord(Context &context, const std::u16string &name)
{
    if (const RecordId there = findRecord(context, Style, name); there != drawing::NoRecord)
        return there;
    if (!isValidName(name))
        throw CommandError{u"Invalid text style name."};
    return addRecord(context,
                     {textGroup(drawing::groupcode::Type, u"STYLE"), textGroup(drawing::groupcode::Name, name),
                      integerGroup(drawing::groupcode::Count, 0), realGroup(HeightCode, 0), realGroup(WidthCode, 1),
                      realGroup(ObliqueCode, 0), integerGroup(GenerationCode, 0), realGroup(LastHeightCode, 2.5),
                      textGroup(FontCode, u"txt"), textGroup(BigFontCode, u"")});
}

bool isShapeFont(const std::u16string &font)
{
    const std::u16string name = drawing::folded(font);
    return !name.ends_with(drawing::folded(u".ttf")) && !name.ends_with(drawing::folded(u".otf"));
}

} // namespace

Command style(Context &context)
{
    const std::u16string namePrompt =
        u"Enter name of text style or [?] <" + context.session().text(u"TEXTSTYLE") + u">: ";
    const auto name = co_await context.ask().string({namePrompt});
    const std::u16string wanted = name.hasValue() ? name.value : context.session().text(u"TEXTSTYLE");
    const RecordId record = styleRecord(context, wanted);
    drawing::GroupList groups = context.database().groups(record);
    const auto font = co_await context.ask().string({u"Specify full font name or font filename (TTF or SHX): "});
    if (font.hasValue())
        drawing::setGroup(groups, textGroup(FontCode, font.value));
    const auto height = co_await context.ask().distance({u"Specify height of text or [Annotative] <0.0000>: "});
    if (height.hasValue())
        drawing::setGroup(groups, realGroup(HeightCode, height.value));
    const auto width = co_await context.ask().real({u"Specify width factor <1.0000>: "});
    if (width.hasValue())
        drawing::setGroup(groups, realGroup(WidthCode, width.value));
    const auto oblique = co_await context.ask().angle({u"Specify obliquing angle <0>: "});
    if (oblique.hasValue())
        drawing::setGroup(groups, realGroup(ObliqueCode, degrees(oblique.value)));
    const bool isBackwards = co_await askYes(context, u"Display text backwards? [Yes/No] <No>: ");
    const bool isUpsideDown = co_await askYes(context, u"Display text upside-down? [Yes/No] <No>: ");
    drawing::setGroup(groups,
                      integerGroup(GenerationCode, (isBackwards ? Backwards : 0) | (isUpsideDown ? UpsideDown : 0)));
    if (isShapeFont(drawing::textOf(groups, FontCode))) {
        constexpr std::int64_t Vertical = 4;
        const bool isVertical = co_await askYes(context, u"Vertical? <N> ");
        drawing::setGroup(groups, integerGroup(drawing::groupcode::Count, isVertical ? Vertical : 0));
    }
    context.database().replace(record, groups);
    context.session().assign(u"TEXTSTYLE", context.database().name(record));
}

} // namespace commands
