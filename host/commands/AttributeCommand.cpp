// ATTDEF: the definition of an attribute, which inserts of its block ask for.

#include "host/commands/Commands.h"
#include "host/commands/NewText.h"

#include <QString>

#include <array>

namespace commands {

using drawing::textGroup;

namespace {

constexpr int PromptCode = 3, FlagsCode = 70;

struct Mode
{
    std::u16string_view name;
    int flag;
};

constexpr int Constant = 2, AllModes = 15; // AFLAGS has more
constexpr std::array<Mode, 4> modes = {{{u"Invisible", 1}, {u"Constant", Constant}, {u"Verify", 4}, {u"Preset", 8}}};

std::u16string shownModes(int flags)
{
    std::u16string text = u"Current attribute modes:";
    for (const Mode &mode : modes)
        text += u"  " + std::u16string(mode.name) + ((flags & mode.flag) != 0 ? u"=Y" : u"=N");
    return text;
}

// Each answer changes one of them, until Enter. They are those of the next definition as well.
Command askModes(Context &context)
{
    for (;;) {
        int flags = context.session().integer(u"AFLAGS");
        context.say(shownModes(flags));
        const auto choice =
            co_await context.ask().keyword({u"Enter an option to change [Invisible/Constant/Verify/Preset] <done>: ",
                                            u"Invisible Constant Verify Preset"});
        if (choice.isNothing())
            co_return;
        for (const Mode &mode : modes)
            flags ^= choice.is(mode.name) ? mode.flag : 0;
        context.session().assign(u"AFLAGS", flags);
    }
}

bool isTag(const std::u16string &text)
{
    return !text.empty() && text.find_first_of(u" \t") == std::u16string::npos;
}

// In capitals.
Task<std::u16string> askTag(Context &context)
{
    for (;;) {
        const auto tag = co_await context.ask().string({u"Enter attribute tag name: "});
        if (isTag(tag.value))
            co_return QString::fromStdU16String(tag.value).toUpper().toStdU16String();
        context.session().print(u"\nAn attribute tag has one letter at least, and no blanks.\n");
    }
}

StringRequest askWords(Context &context, std::u16string_view prompt)
{
    return context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
}

TextLine definition(const std::u16string &tag, const std::u16string &prompt, const std::u16string &value, int flags)
{
    return {u"ATTDEF",
            value,
            {textGroup(PromptCode, prompt), textGroup(drawing::groupcode::Name, tag),
             drawing::integerGroup(FlagsCode, flags)}};
}

// Nobody is asked for a constant one.
Task<TextLine> askDefinition(Context &context)
{
    const int flags = context.session().integer(u"AFLAGS") & AllModes;
    const bool isConstant = (flags & Constant) != 0;
    const std::u16string tag = co_await askTag(context);
    std::u16string prompt;
    if (!isConstant) {
        const auto words = co_await askWords(context, u"Enter attribute prompt: ");
        prompt = words.value;
    }
    const auto value =
        co_await askWords(context, isConstant ? u"Enter attribute value: " : u"Enter default attribute value: ");
    co_return definition(tag, prompt, value.value, flags);
}

} // namespace

Command defineAttribute(Context &context)
{
    co_await askModes(context);
    const TextLine line = co_await askDefinition(context);
    RecordId &last = context.memory().attribute;
    const std::optional<TextPlacing> placing = co_await askTextPlacing(context, last);
    if (!placing) {
        last = addTextBelow(context, line, last);
        co_return;
    }
    const TextSize size = co_await askTextSize(context, *placing);
    last = addText(context, line, *placing, size);
}

} // namespace commands
