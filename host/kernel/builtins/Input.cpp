// Requests to the person at the command line: initget and the get… functions.

#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "lisp/LispStatus.h"

using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

std::u16string_view promptOf(Args arguments, std::uint32_t index)
{
    return arguments.has(index) && arguments[index].isTrue() ? arguments.text(index) : u"";
}

// What a request gives to a program: its value, nil for Enter alone, a keyword as a string. Esc ends the program.
template <class MakeValue> Value answer(Machine &machine, int status, MakeValue makeValue)
{
    switch (status) {
    case StatusNormal:
        return makeValue();
    case StatusKeyword:
        return machine.string(Document::of(machine).prompter().lastInput());
    case StatusNoInput:
        return Value::nil();
    default:
        lisp::fail(u"Function cancelled");
    }
}

std::optional<LispPoint> pointArgument(Args arguments, std::uint32_t index)
{
    if (!arguments.has(index) || arguments[index].isNil())
        return std::nullopt;
    const std::optional<PointList> list = pointListOf(arguments[index]);
    if (!list)
        lisp::badArgument(u"point:", arguments[index]);
    return list->point;
}

// The optional base point and prompt of the point functions stand in any order: (getdist [POINT] [PROMPT]).
struct PointRequest
{
    std::optional<LispPoint> base;
    std::u16string_view prompt;

    explicit PointRequest(Args arguments)
    {
        const bool promptFirst = arguments[0].isString();
        base = pointArgument(arguments, promptFirst ? 1 : 0);
        prompt = promptOf(arguments, promptFirst ? 0 : 1);
    }
    const LispPoint *basePoint() const { return base ? &*base : nullptr; }
};

Value initGet(Machine &machine, Args arguments)
{
    const bool hasBits = arguments[0].isInteger();
    const std::uint32_t keywords = hasBits ? 1 : 0;
    Document::of(machine).prompter().initGet(hasBits ? arguments.integer(0) : 0,
                                             arguments.has(keywords) ? arguments.text(keywords) : u"");
    return Value::nil();
}

Value getInt(Machine &machine, Args arguments)
{
    std::int32_t value = 0;
    const int status = Document::of(machine).prompter().integer(promptOf(arguments, 0), value);
    return answer(machine, status, [&] { return Value::integer(value); });
}

Value getReal(Machine &machine, Args arguments)
{
    double value = 0;
    const int status = Document::of(machine).prompter().real(promptOf(arguments, 0), value);
    return answer(machine, status, [&] { return Value::canonicalReal(value); });
}

Value getString(Machine &machine, Args arguments)
{
    const bool blanksFirst = !arguments[0].isString();
    std::u16string text;
    const int status = Document::of(machine).prompter().string(blanksFirst && arguments[0].isTrue(),
                                                               promptOf(arguments, blanksFirst ? 1 : 0), text);
    return answer(machine, status, [&] { return machine.string(text); });
}

Value getKeyword(Machine &machine, Args arguments)
{
    Prompter &prompter = Document::of(machine).prompter();
    const int status = prompter.keyword(promptOf(arguments, 0));
    return answer(machine, status, [&] { return machine.string(prompter.lastInput()); });
}

Value getPoint(Machine &machine, Args arguments)
{
    const PointRequest request(arguments);
    LispPoint point{};
    const int status = Document::of(machine).prompter().point(request.prompt, request.basePoint(), point);
    return answer(machine, status, [&] { return pointValue(machine, point, 3); });
}

Value getCorner(Machine &machine, Args arguments)
{
    const std::optional<LispPoint> base = pointArgument(arguments, 0);
    if (!base)
        lisp::badArgument(u"point:", arguments[0]);
    LispPoint point{};
    const int status = Document::of(machine).prompter().corner(promptOf(arguments, 1), *base, point);
    return answer(machine, status, [&] { return pointValue(machine, point, 3); });
}

template <int (Prompter::*Request)(std::u16string_view, const LispPoint *, double &)>
Value getMeasure(Machine &machine, Args arguments)
{
    const PointRequest request(arguments);
    double value = 0;
    const int status = (Document::of(machine).prompter().*Request)(request.prompt, request.basePoint(), value);
    return answer(machine, status, [&] { return Value::canonicalReal(value); });
}

constexpr lisp::BuiltinRow rows[] = {
    {"initget", "(initget [BITS] [KEYWORDS])",
     "Sets what the next request accepts: 1 no Enter, 2 no zero, 4 no negative, 128 any text; and keywords.", initGet},
    {"getint", "(getint [PROMPT])", "Asks for an integer from -32768 to 32767.", getInt},
    {"getreal", "(getreal [PROMPT])", "Asks for a real number.", getReal},
    {"getstring", "(getstring [BLANKS] [PROMPT])", "Asks for a text, which may hold blanks if BLANKS is not nil.",
     getString},
    {"getkword", "(getkword [PROMPT])", "Asks for one of the keywords of initget.", getKeyword},
    {"getpoint", "(getpoint [POINT] [PROMPT])", "Asks for a point.", getPoint},
    {"getcorner", "(getcorner POINT [PROMPT])", "Asks for the corner of a rectangle that begins at a point.",
     getCorner},
    {"getdist", "(getdist [POINT] [PROMPT])", "Asks for a distance, typed or by two points.",
     getMeasure<&Prompter::distance>},
    {"getangle", "(getangle [POINT] [PROMPT])", "Asks for an angle in radians, counted from ANGBASE.",
     getMeasure<&Prompter::angle>},
    {"getorient", "(getorient [POINT] [PROMPT])", "Asks for an angle in radians, counted from the X axis.",
     getMeasure<&Prompter::orientation>},
};

} // namespace

std::span<const lisp::BuiltinRow> inputBuiltins()
{
    return rows;
}
