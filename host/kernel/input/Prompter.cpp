#include "host/kernel/input/Prompter.h"

#include "host/commands/Limits.h"
#include "host/interpreter/Direction.h"
#include "host/kernel/HostServices.h"
#include "lisp/LispStatus.h"

#include <QStringView>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

using Kind = InputRequest::Kind;

constexpr std::u16string_view InvalidPoint = u"Invalid point.";

std::optional<std::u16string_view> complaintAbout(double value, int bits)
{
    const commands::Limits limits{(bits & InputOptions::NoZero) != 0, (bits & InputOptions::NoNegative) != 0};
    return limits.complaintAbout(value);
}

double directionFrom(const LispPoint &from, const LispPoint &to)
{
    return lisp::directionOf(to.x - from.x, to.y - from.y);
}

double distanceBetween(const LispPoint &from, const LispPoint &to)
{
    return std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
}

InputRequest requestFor(Kind kind, std::u16string_view prompt, const LispPoint *base = nullptr)
{
    return {kind, std::u16string(prompt), base ? std::optional(*base) : std::nullopt};
}

} // namespace

CoordinateContext Prompter::context() const
{
    return {m_machine.unitVariables(), lastPoint, angleBase, clockwise};
}

int Prompter::ask(const InputRequest &request, const InputOptions &options, const Reader &read)
{
    InputRequest shown = request;
    for (;;) {
        const InputReply reply = m_services.input->request(shown);
        const bool isText = reply.kind == InputReply::Kind::Text;
        if (!isText && reply.kind != InputReply::Kind::Picked)
            return StatusCancelled;
        if (isText && reply.text.empty() && !(options.bits & InputOptions::NoEmptyInput))
            return StatusNoInput;
        if (std::optional<std::u16string> keyword = options.keywords.match(reply.text)) {
            m_lastInput = std::move(*keyword);
            return StatusKeyword;
        }
        if (const auto modes = isText ? snapOf(request.kind, reply.text) : std::nullopt) {
            shown.snap = m_snap = *modes;
            shown.prompt = u"of ";
            continue;
        }
        const Complaint complaint = read(reply);
        m_snap = snap::None;
        shown = request;
        if (!complaint)
            return StatusNormal;
        if (options.bits & InputOptions::ArbitraryInput && !reply.text.empty()) {
            m_lastInput = reply.text;
            return StatusKeyword;
        }
        m_services.print(std::u16string(*complaint) + u'\n');
    }
}

// The snap that stands before a point, where one is asked for.
std::optional<snap::Modes> Prompter::snapOf(Kind kind, std::u16string_view text) const
{
    const bool takesPoints =
        kind == Kind::Point || kind == Kind::Corner || kind == Kind::Distance || kind == Kind::Angle;
    return takesPoints && snapper ? snap::modesFromText(text) : std::nullopt;
}

std::optional<LispPoint> Prompter::pointOf(const InputReply &reply)
{
    const bool isPlace = reply.kind != InputReply::Kind::Text && reply.text.empty();
    const std::optional<LispPoint> point = isPlace ? reply.place : pointFromText(reply.text, context());
    return point && m_snap != snap::None ? snapper(*point, m_snap, lastPoint) : point;
}

int Prompter::integer(std::u16string_view prompt, std::int32_t &value)
{
    const InputOptions options = takeOptions();
    return ask(requestFor(Kind::Integer, prompt), options, [&](const InputReply &reply) -> Complaint {
        bool isNumber = false;
        const int number = QStringView(reply.text).trimmed().toInt(&isNumber);
        if (!isNumber)
            return u"Requires an integer value.";
        using Short = std::numeric_limits<std::int16_t>;
        if (number < Short::min() || number > Short::max())
            return u"Requires an integer between -32768 and 32767.";
        if (const Complaint complaint = complaintAbout(number, options.bits))
            return complaint;
        value = number;
        return std::nullopt;
    });
}

int Prompter::real(std::u16string_view prompt, double &value)
{
    const InputOptions options = takeOptions();
    return ask(requestFor(Kind::Real, prompt), options, [&](const InputReply &reply) -> Complaint {
        const std::optional<double> number = distanceFromText(reply.text, context());
        if (!number)
            return u"Requires numeric value.";
        if (const Complaint complaint = complaintAbout(*number, options.bits))
            return complaint;
        value = *number;
        return std::nullopt;
    });
}

int Prompter::string(bool allowBlanks, std::u16string_view prompt, std::u16string &value)
{
    takeOptions();
    InputReply reply = m_services.input->request(requestFor(Kind::String, prompt));
    if (reply.kind != InputReply::Kind::Text)
        return StatusCancelled;
    if (!allowBlanks) // the blank ends the input as Enter does
        reply.text.resize(std::min(reply.text.find(u' '), reply.text.size()));
    value = std::move(reply.text);
    return StatusNormal;
}

int Prompter::keyword(std::u16string_view prompt)
{
    const InputOptions options = takeOptions();
    const auto refuse = [](const InputReply &) -> Complaint { return u"Invalid option keyword."; };
    const int status = ask(requestFor(Kind::Keyword, prompt), options, refuse);
    return status == StatusKeyword ? StatusNormal : status;
}

int Prompter::askPoint(const InputRequest &request, LispPoint &value)
{
    const InputOptions options = takeOptions();
    return ask(request, options, [&](const InputReply &reply) -> Complaint {
        const std::optional<LispPoint> point = pointOf(reply);
        if (!point)
            return InvalidPoint;
        value = lastPoint = *point;
        return std::nullopt;
    });
}

int Prompter::drag(std::u16string_view prompt, const Dragged &dragged, LispPoint &picked)
{
    const InputOptions options = takeOptions();
    InputRequest request = requestFor(Kind::Drag, prompt);
    request.dragged = &dragged;
    for (;;) {
        const InputReply reply = m_services.input->request(request);
        if (reply.kind == InputReply::Kind::Cancelled)
            return StatusCancelled;
        const std::optional<LispPoint> point = pointOf(reply);
        if (point)
            dragged.transformAt(*point);
        if (reply.kind == InputReply::Kind::Moved) {
            if (!point)
                m_services.print(std::u16string(InvalidPoint) + u'\n');
            continue;
        }
        if (point) {
            picked = lastPoint = *point;
            return StatusNormal;
        }
        if (reply.text.empty())
            return StatusNoInput;
        m_lastInput = options.keywords.match(reply.text).value_or(reply.text);
        return StatusText;
    }
}

int Prompter::event(Moves moves, Event &event)
{
    InputRequest request = requestFor(Kind::Event, u"");
    request.tellsMoves = moves == Moves::Told;
    while (m_keys.empty()) {
        const InputReply reply = m_services.input->request(request);
        if (reply.kind == InputReply::Kind::Cancelled)
            return StatusCancelled;
        const bool isMove = reply.kind == InputReply::Kind::Moved;
        const bool isKey = reply.kind == InputReply::Kind::Text && reply.text.size() == 1; // "@" too, which is a point
        const std::optional<LispPoint> point = isKey ? std::nullopt : pointOf(reply);
        if (point && (!isMove || request.tellsMoves)) {
            event = {isMove ? Event::Kind::Move : Event::Kind::Pick, 0, *point};
            return StatusNormal;
        }
        if (reply.kind == InputReply::Kind::Text)
            m_keys = isKey ? reply.text : reply.text + u'\r';
    }
    event = {Event::Kind::Key, m_keys.front(), {}};
    m_keys.erase(0, 1);
    return StatusNormal;
}

int Prompter::point(std::u16string_view prompt, const LispPoint *base, LispPoint &value)
{
    return askPoint(requestFor(Kind::Point, prompt, base), value);
}

int Prompter::corner(std::u16string_view prompt, const LispPoint &base, LispPoint &value)
{
    return askPoint(requestFor(Kind::Corner, prompt, &base), value);
}

int Prompter::entity(std::u16string_view prompt, LispPoint &picked)
{
    return askPoint(requestFor(Kind::Entity, prompt), picked);
}

int Prompter::askSecondPoint(LispPoint first, LispPoint &second)
{
    lastPoint = first;
    return ask(requestFor(Kind::Point, u"Specify second point: ", &first), {InputOptions::NoEmptyInput, {}},
               [&](const InputReply &reply) -> Complaint {
                   const std::optional<LispPoint> point = pointOf(reply);
                   if (!point)
                       return InvalidPoint;
                   second = lastPoint = *point;
                   return std::nullopt;
               });
}

int Prompter::distance(std::u16string_view prompt, const LispPoint *base, double &value)
{
    const InputOptions options = takeOptions();
    std::optional<LispPoint> picked;
    const int status =
        ask(requestFor(Kind::Distance, prompt, base), options, [&](const InputReply &reply) -> Complaint {
            std::optional<double> length = distanceFromText(reply.text, context());
            picked = length ? std::nullopt : pointOf(reply);
            if (picked && base)
                length = distanceBetween(*base, *picked);
            if (!length)
                return picked ? Complaint() : u"Requires numeric distance or two points.";
            if (const Complaint complaint = complaintAbout(*length, options.bits))
                return complaint;
            value = *length;
            return std::nullopt;
        });
    if (status != StatusNormal || !picked)
        return status;
    if (base) {
        lastPoint = *picked;
        return StatusNormal;
    }
    LispPoint second{};
    const int secondStatus = askSecondPoint(*picked, second);
    if (secondStatus == StatusNormal)
        value = distanceBetween(*picked, second);
    return secondStatus;
}

int Prompter::angle(std::u16string_view prompt, const LispPoint *base, double &value)
{
    double direction = 0;
    const int status = askDirection(prompt, base, direction);
    if (status == StatusNormal) {
        const double fromBase = direction - angleBase;
        value = fromBase < 0 ? fromBase + 2 * std::numbers::pi : fromBase;
    }
    return status;
}

int Prompter::orientation(std::u16string_view prompt, const LispPoint *base, double &value)
{
    return askDirection(prompt, base, value);
}

int Prompter::askDirection(std::u16string_view prompt, const LispPoint *base, double &direction)
{
    const InputOptions options = takeOptions();
    std::optional<LispPoint> picked;
    const int status = ask(requestFor(Kind::Angle, prompt, base), options, [&](const InputReply &reply) -> Complaint {
        const std::optional<double> typed = angleFromText(reply.text, context());
        picked = typed ? std::nullopt : pointOf(reply);
        if (!typed)
            return picked ? Complaint() : u"Requires valid numeric angle or two points.";
        if (options.bits & InputOptions::NoZero && *typed == 0)
            return u"Value must be nonzero.";
        direction = directionOf(*typed, context());
        return std::nullopt;
    });
    if (status != StatusNormal || !picked)
        return status;
    if (base) {
        lastPoint = *picked;
        direction = directionFrom(*base, *picked);
        return StatusNormal;
    }
    LispPoint second{};
    const int secondStatus = askSecondPoint(*picked, second);
    if (secondStatus == StatusNormal)
        direction = directionFrom(*picked, second);
    return secondStatus;
}
