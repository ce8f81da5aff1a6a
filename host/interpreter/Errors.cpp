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

namespace {

std::u16string entryText(const TraceEntry &entry)
{
    const auto number = [](std::uint32_t value) { return QString::number(value).toStdU16String(); };
    std::u16string text = entry.function.empty() ? u"  at " : u"  in " + entry.function + u" at ";
    text += entry.file.empty() ? u"(evaluated text)" : entry.file;
    if (entry.line != 0)
        text += u":" + number(entry.line);
    if (entry.column != 0)
        text += u":" + number(entry.column);
    return text + u'\n';
}

} // namespace

// A run of equal lines, as endless recursion gives it, is shown once with its length.
std::u16string traceText(const std::vector<TraceEntry> &trace)
{
    std::u16string text;
    for (std::size_t i = 0, end = 0; i < trace.size(); i = end) {
        const std::u16string line = entryText(trace[i]);
        for (end = i + 1; end < trace.size() && entryText(trace[end]) == line;)
            ++end;
        text += line;
        if (end - i > 1)
            text += u"  ... " + QString::number(end - i).toStdU16String() + u" times\n";
    }
    return text;
}

} // namespace lisp
