#pragma once

#include "host/commands/Input.h"
#include "host/commands/Limits.h"
#include "host/drawing/snap/Modes.h"
#include "host/interpreter/text/Keywords.h"

#include <coroutine>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace commands {

class Session;

// What the waiting command is told when somebody presses Esc.
struct Cancelled
{
};

// A command that cannot go on; the text is shown.
struct CommandError
{
    std::u16string message;
};

enum class Enter { Allowed, Refused };
enum class OtherCommand { Refused, EndsThis };     // whose name stands where an answer is due: that is Enter, too
enum class Blanks { EndAnswers, BelongToAnswers }; // where answers are typed one after the other, in scripts

// The parts of a request that commands choose. The texts must live until the answer is there.
struct Question
{
    std::u16string_view prompt;
    std::u16string_view keywords = {}; // as initget's
    Enter enter = Enter::Allowed;
    std::optional<Point> base = {}; // where distances and angles begin
    Blanks blanks = Blanks::EndAnswers;
    OtherCommand otherCommand = OtherCommand::Refused;
};

// What a command gets for a question: a value, one of the keywords, or nothing for Enter alone.
template <class Value> struct Reply
{
    enum class Kind { Given, Keyword, Nothing };

    Kind kind = Kind::Nothing;
    Value value = {};
    std::u16string keyword = {};

    bool hasValue() const { return kind == Kind::Given; }
    bool isNothing() const { return kind == Kind::Nothing; }
    bool is(std::u16string_view word) const { return kind == Kind::Keyword && keyword == word; }
};

// A question that waits for its answer. A command co_awaits one at a time; the command line offers it what comes.
class Request
{
public:
    enum class Outcome { Answered, Refused, WantsMore };

    Request(const Request &) = delete;
    Request &operator=(const Request &) = delete;

    InputKind kind() const { return m_kind; }
    const std::optional<Point> &base() const { return m_base; }
    const std::u16string &prompt() const { return m_prompt; }
    Blanks blanks() const { return m_blanks; }
    OtherCommand otherCommand() const { return m_otherCommand; }
    bool hasKeyword(std::u16string_view typed) const { return m_keywords.match(typed).has_value(); }
    std::optional<snap::Modes> snap() const;                        // that were typed for the next point
    const std::u16string &complaint() const { return m_complaint; } // of the answer that was refused last
    Outcome offer(const Input &input);
    void cancel() { m_isCancelled = true; }
    void resume() { m_waiting.resume(); }

protected:
    Request(InputKind kind, const Question &question, Session &session, Request *&slot);
    ~Request() = default;

    virtual Outcome read(const Input &input) = 0;
    virtual void setNothing() = 0;
    virtual void setKeyword(std::u16string keyword) = 0;
    Outcome refuse(std::u16string_view complaint);
    // The point that an answer is, put to the place that the snap typed before it names. None: no point, or none there.
    std::optional<Point> readPlace(const Input &input);
    Outcome refusePlace(std::u16string_view complaint); // what readPlace() had against it, else the complaint

    void wait(std::coroutine_handle<> waiting);
    void checkCancelled() const;

    Session &m_session;
    std::optional<Point> m_base;
    std::u16string m_prompt;

private:
    bool takesPoints() const;
    Outcome startSnap(snap::Modes modes);

    InputKind m_kind;
    lisp::Keywords m_keywords;
    Enter m_enter;
    Blanks m_blanks;
    OtherCommand m_otherCommand;
    Request *&m_slot; // of the command line: the request that waits
    std::u16string m_complaint;
    std::coroutine_handle<> m_waiting;
    bool m_isCancelled = false;

    struct TypedSnap
    {
        snap::Modes modes;
        std::u16string prompt; // that it interrupts
    };
    std::optional<TypedSnap> m_snap;
    std::u16string m_failedSnap; // what was not found
};

// The awaitable with the answer's type; what reads the answers derives from it.
template <class Value> class Awaited : public Request
{
public:
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) { wait(waiting); }
    Reply<Value> await_resume()
    {
        checkCancelled();
        return std::move(m_reply);
    }

protected:
    using Request::Request;
    ~Awaited() = default;
    void setNothing() override { m_reply.kind = Reply<Value>::Kind::Nothing; }
    void setKeyword(std::u16string keyword) override
    {
        m_reply.kind = Reply<Value>::Kind::Keyword;
        m_reply.keyword = std::move(keyword);
    }
    Outcome answer(Value value)
    {
        m_reply.kind = Reply<Value>::Kind::Given;
        m_reply.value = std::move(value);
        return Outcome::Answered;
    }
    Outcome answerWithin(const Limits &limits, Value value)
    {
        if (const std::optional<std::u16string_view> complaint = limits.complaintAbout(value))
            return refuse(*complaint);
        return answer(std::move(value));
    }

private:
    Reply<Value> m_reply;
};

} // namespace commands
