// TEXT: one line of text.

#include "host/commands/Commands.h"
#include "host/commands/NewText.h"

namespace commands {

namespace {

StringRequest askContent(Context &context)
{
    return context.ask().string({u"Enter text: ", {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
}

} // namespace

Command text(Context &context)
{
    const std::optional<TextPlacing> placing = co_await askTextPlacing(context, context.memory().text);
    TextSize size{};
    if (placing)
        size = co_await askTextSize(context, *placing);
    const auto content = co_await askContent(context);
    if (!content.hasValue())
        co_return;
    const TextLine line{u"TEXT", content.value};
    RecordId &last = context.memory().text;
    last = placing ? addText(context, line, *placing, size) : addTextBelow(context, line, last);
}

} // namespace commands
