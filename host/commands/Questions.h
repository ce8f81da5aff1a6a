#pragma once

#include "host/commands/Request.h"

namespace commands {

// The answers that are read: what fits is kept and gives Answered. Commands make them through Questions.

class PointRequest final : public Awaited<Point>
{
public:
    PointRequest(InputKind kind, const Question &question, Session &session, Request *&slot)
        : Awaited(kind, question, session, slot)
    {
    }

private:
    Outcome read(const Input &input) override;
};

// A number, or the distance between the base, or a first point, and a point.
class DistanceRequest final : public Awaited<double>
{
public:
    DistanceRequest(const Question &question, const Limits &limits, Session &session, Request *&slot)
        : Awaited(InputKind::Distance, question, session, slot), m_limits(limits)
    {
    }

private:
    Outcome read(const Input &input) override;
    Outcome readPoint(const Point &point);

    Limits m_limits;
};

// Radians, counter-clockwise. A number is an angle in the current units; two points give the angle of the line between
// them. Directions are typed from ANGBASE, what something is turned by is not.
class AngleRequest final : public Awaited<double>
{
public:
    AngleRequest(const Question &question, const Limits &limits, double origin, Session &session, Request *&slot)
        : Awaited(InputKind::Angle, question, session, slot), m_limits(limits), m_origin(origin)
    {
    }

private:
    Outcome read(const Input &input) override;
    Outcome readPoint(const Point &point);

    Limits m_limits;
    double m_origin;
};

class IntegerRequest final : public Awaited<int>
{
public:
    IntegerRequest(const Question &question, const Range &range, Session &session, Request *&slot)
        : Awaited(InputKind::Integer, question, session, slot), m_range(range)
    {
    }

private:
    Outcome read(const Input &input) override;
    Outcome take(int number);

    Range m_range;
};

class RealRequest final : public Awaited<double>
{
public:
    RealRequest(const Question &question, const Limits &limits, Session &session, Request *&slot)
        : Awaited(InputKind::Real, question, session, slot), m_limits(limits)
    {
    }

private:
    Outcome read(const Input &input) override;

    Limits m_limits;
};

class StringRequest final : public Awaited<std::u16string>
{
public:
    StringRequest(const Question &question, Session &session, Request *&slot)
        : Awaited(InputKind::String, question, session, slot)
    {
    }

private:
    Outcome read(const Input &input) override;
};

// A keyword and nothing else; there is never a value.
class KeywordRequest final : public Awaited<bool>
{
public:
    KeywordRequest(const Question &question, Session &session, Request *&slot)
        : Awaited(InputKind::Keyword, question, session, slot)
    {
    }

private:
    Outcome read(const Input &input) override;
};

class EntityRequest final : public Awaited<PickedEntity>
{
public:
    EntityRequest(const Question &question, Session &session, Request *&slot)
        : Awaited(InputKind::Entity, question, session, slot)
    {
    }

private:
    Outcome read(const Input &input) override;
};

// Whatever comes, for the command itself to read; a check says what it has against an answer, nothing for one that
// fits.
class AnyRequest final : public Awaited<Input>
{
public:
    using Check = std::u16string_view (*)(const Input &, const Session &);

    AnyRequest(InputKind kind, const Question &question, Check check, Session &session, Request *&slot)
        : Awaited(kind, question, session, slot), m_check(check)
    {
    }

private:
    Outcome read(const Input &input) override;

    Check m_check; // may be null
};

// What a command asks with: co_await questions.point({...}). Numbers may have limits: questions.distance({...},
// Positive).
class Questions
{
public:
    explicit Questions(Session &session) : m_session(session) {}

    PointRequest point(const Question &question) { return {InputKind::Point, question, m_session, m_waiting}; }
    PointRequest corner(const Question &question) { return {InputKind::Corner, question, m_session, m_waiting}; }
    DistanceRequest distance(const Question &question, const Limits &limits = {})
    {
        return {question, limits, m_session, m_waiting};
    }
    AngleRequest angle(const Question &question, const Limits &limits = {})
    {
        return {question, limits, 0, m_session, m_waiting};
    }
    AngleRequest direction(const Question &question);
    IntegerRequest integer(const Question &question, const Range &range = {})
    {
        return {question, range, m_session, m_waiting};
    }
    RealRequest real(const Question &question, const Limits &limits = {})
    {
        return {question, limits, m_session, m_waiting};
    }
    StringRequest string(const Question &question) { return {question, m_session, m_waiting}; }
    KeywordRequest keyword(const Question &question) { return {question, m_session, m_waiting}; }
    EntityRequest entity(const Question &question) { return {question, m_session, m_waiting}; }
    AnyRequest any(InputKind kind, const Question &question, AnyRequest::Check check = nullptr)
    {
        return {kind, question, check, m_session, m_waiting};
    }

    Request *waiting() const { return m_waiting; } // null: the command does not wait
    Request *takeWaiting() { return std::exchange(m_waiting, nullptr); }

private:
    Session &m_session;
    Request *m_waiting = nullptr;
};

// The number that an answer is, typed or given.
std::optional<double> numberOf(const Input &input, const Session &session);
std::optional<Point> pointOf(const Input &input, const Session &session);

} // namespace commands
