// SCRIPT: the command line takes what a file has, as if it were typed.

#include "host/commands/Commands.h"

namespace commands {

// The file is read now and run when this command has ended.
Command script(Context &context)
{
    const auto name = co_await context.ask().string({u"Enter script file name: ", {}, Enter::Refused});
    std::optional<std::u16string> text = context.session().scriptText(name.value);
    if (!text)
        throw CommandError{u"Can't open script file \"" + name.value + u"\"."};
    context.memory().script = std::move(text);
}

} // namespace commands
