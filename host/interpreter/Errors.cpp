#include "host/interpreter/Errors.h"

#include "host/interpreter/Printer.h"

#include <QString>

namespace lisp {

void fail(std::u16string_view message)
{
    throw LispError(std::u16string(message));
}

void badArgument(std::u16string_view predicate, Value value)
{
    std::u16string message(u"bad argument type: ");
    message.append(predicate).append(u" ");
    print(message, value, PrintStyle::Readable);
    throw LispError(std::move(message));
}

std::u16string traceText(const std::vector<TraceEntry> &trace)
{
    const auto number = [](std::uint32_t value) { return QString::number(value).toStdU16String(); };
    std::u16string text;
    for (const TraceEntry &entry : trace) {
        text += entry.function.empty() ? u"  at " : u"  in " + entry.function + u" at ";
        text += entry.file.empty() ? u"(evaluated text)" : entry.file;
        if (entry.line != 0)
            text += u":" + number(entry.line);
        if (entry.column != 0)
            text += u":" + number(entry.column);
        text += u'\n';
    }
    return text;
}

} // namespace lisp
