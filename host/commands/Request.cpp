#include "host/commands/Request.h"

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
      m_enter(question.enter), m_slot(slot)
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
    return read(input);
}

} // namespace commands
