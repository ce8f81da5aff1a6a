#include "host/commands/Request.h"

#include "host/commands/Picking.h"
#include "host/commands/Questions.h"

#include <algorithm>

namespace commands {

namespace {

bool isBlank(const std::u16string &text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit == u' '; });
}

} // namespace

Request::Request(InputKind kind, const Question &question, Session &session, Request *&slot)
    : m_session(session), m_base(question.base), m_prompt(question.prompt), m_kind(kind), m_keywords(question.keywords),
      m_enter(question.enter), m_blanks(question.blanks), m_otherCommand(question.otherCommand), m_slot(slot)
{
}

void Request::wait(std::coroutine_handle<> waiting)
{
    m_waiting = waiting;
    m_slot = this;
}

void Request::checkCancelled() const
{
    if (m_isCancelled)
        throw Cancelled();
}

Request::Outcome Request::refuse(std::u16string_view complaint)
{
    m_complaint = complaint;
    return Outcome::Refused;
}

bool Request::takesPoints() const
{
    return m_kind == InputKind::Point || m_kind == InputKind::Corner || m_kind == InputKind::Distance ||
           m_kind == InputKind::Angle;
}

std::optional<snap::Modes> Request::snap() const
{
    return m_snap ? std::optional(m_snap->modes) : std::nullopt;
}

// "_end" and the like: the next point lies near what is meant.
Request::Outcome Request::startSnap(snap::Modes modes)
{
    m_snap = {modes, m_snap ? m_snap->prompt : std::exchange(m_prompt, u"of ")};
    return Outcome::WantsMore;
}

std::optional<Point> Request::readPlace(const Input &input)
{
    const std::optional<Point> point = pointOf(input, m_session);
    if (!point || !m_snap)
        return point;
    const TypedSnap snap = *std::exchange(m_snap, std::nullopt);
    m_prompt = snap.prompt;
    if (snap.modes == snap::None)
        return point;
    const std::optional<Point> from = m_base ? m_base : m_session.point(u"LASTPOINT");
    const std::optional<Point> place = snapped(m_session, *point, snap.modes, from);
    if (!place)
        m_failedSnap = u"No " + snap::namesOf(snap.modes) + u" found for specified point.";
    return place;
}

Request::Outcome Request::refusePlace(std::u16string_view complaint)
{
    return refuse(m_failedSnap.empty() ? complaint : std::exchange(m_failedSnap, {}));
}

// Where blanks are no text of their own, one alone is Enter, as the space bar is.
Request::Outcome Request::offer(const Input &input)
{
    const auto *text = std::get_if<std::u16string>(&input);
    if (text && (text->empty() || (m_kind != InputKind::String && isBlank(*text)))) {
        if (m_enter == Enter::Refused)
            return refuse(u"Requires an answer.");
        setNothing();
        return Outcome::Answered;
    }
    if (text) {
        if (std::optional<std::u16string> keyword = m_keywords.match(*text)) {
            setKeyword(std::move(*keyword));
            return Outcome::Answered;
        }
    }
    if (text && takesPoints())
        if (const std::optional<snap::Modes> modes = snap::modesFromText(*text))
            return startSnap(*modes);
    return read(input);
}

} // namespace commands
