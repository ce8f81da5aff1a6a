#include "host/commands/Questions.h"

#include "host/commands/Picking.h"
#include "host/commands/Session.h"

#include <QString>

#include <cmath>

namespace commands {

namespace {

double distanceBetween(const Point &from, const Point &to)
{
    return std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
}

// As a person would type it, so that it is read in the current units.
std::optional<std::u16string> typedText(const Input &input)
{
    constexpr int Decimals = 15; // what a double has
    if (const auto *text = std::get_if<std::u16string>(&input))
        return *text;
    if (const auto *integer = std::get_if<std::int64_t>(&input))
        return QString::number(*integer).toStdU16String();
    if (const auto *real = std::get_if<double>(&input))
        return QString::number(*real, 'f', Decimals).toStdU16String();
    return std::nullopt;
}

} // namespace

std::optional<double> numberOf(const Input &input, const Session &session)
{
    if (const auto *integer = std::get_if<std::int64_t>(&input))
        return static_cast<double>(*integer);
    if (const auto *real = std::get_if<double>(&input))
        return *real;
    const auto *text = std::get_if<std::u16string>(&input);
    return text ? session.distanceOf(*text) : std::nullopt;
}

std::optional<Point> pointOf(const Input &input, const Session &session)
{
    if (const auto *point = std::get_if<Point>(&input))
        return *point;
    const auto *text = std::get_if<std::u16string>(&input);
    return text ? session.pointOf(*text) : std::nullopt;
}

AngleRequest Questions::direction(const Question &question)
{
    return {question, {}, m_session.real(u"ANGBASE"), m_session, m_waiting};
}

Request::Outcome PointRequest::read(const Input &input)
{
    std::optional<Point> point = readPlace(input);
    if (!point)
        return refusePlace(u"Point or option keyword required.");
    if (point->dimensions == 2)
        point = Point{point->x, point->y, m_session.real(u"ELEVATION")};
    m_session.assign(u"LASTPOINT", *point);
    return answer(*point);
}

Request::Outcome DistanceRequest::read(const Input &input)
{
    if (const std::optional<double> number = numberOf(input, m_session))
        return answerWithin(m_limits, *number);
    if (const std::optional<Point> point = readPlace(input))
        return readPoint(*point);
    return refusePlace(u"Requires numeric distance or two points.");
}

Request::Outcome DistanceRequest::readPoint(const Point &point)
{
    m_session.assign(u"LASTPOINT", point);
    if (m_base)
        return answerWithin(m_limits, distanceBetween(*m_base, point));
    m_base = point;
    m_prompt = u"Specify second point: ";
    return Outcome::WantsMore;
}

Request::Outcome AngleRequest::read(const Input &input)
{
    if (const std::optional<std::u16string> text = typedText(input))
        if (const std::optional<double> angle = m_session.angleOf(*text))
            return answerWithin(m_limits, *angle + m_origin);
    if (const std::optional<Point> point = readPlace(input))
        return readPoint(*point);
    return refusePlace(u"Requires valid numeric angle or two points.");
}

Request::Outcome AngleRequest::readPoint(const Point &point)
{
    m_session.assign(u"LASTPOINT", point);
    if (m_base)
        return answerWithin(m_limits, std::atan2(point.y - m_base->y, point.x - m_base->x));
    m_base = point;
    m_prompt = u"Specify second point: ";
    return Outcome::WantsMore;
}

// Programs compute numbers: a whole real will do.
Request::Outcome IntegerRequest::read(const Input &input)
{
    constexpr double MostReal = 2147483648.0; // that an integer does not hold
    if (const auto *real = std::get_if<double>(&input);
        real && *real == std::floor(*real) && std::abs(*real) < MostReal)
        return take(static_cast<int>(*real));
    const std::optional<std::u16string> text = typedText(input);
    bool isNumber = false;
    const int number = text ? QString::fromStdU16String(*text).trimmed().toInt(&isNumber) : 0;
    return isNumber ? take(number) : refuse(u"Requires an integer value.");
}

Request::Outcome IntegerRequest::take(int number)
{
    if (number >= m_range.least && number <= m_range.most)
        return answer(number);
    const QString complaint = QStringLiteral("Requires an integer between %1 and %2.");
    return refuse(complaint.arg(m_range.least).arg(m_range.most).toStdU16String());
}

Request::Outcome RealRequest::read(const Input &input)
{
    const std::optional<double> number = numberOf(input, m_session);
    return number ? answerWithin(m_limits, *number) : refuse(u"Requires numeric value.");
}

Request::Outcome StringRequest::read(const Input &input)
{
    std::optional<std::u16string> text = typedText(input);
    return text ? answer(std::move(*text)) : refuse(u"Requires a text.");
}

Request::Outcome KeywordRequest::read(const Input &)
{
    return refuse(u"Invalid option keyword.");
}

Request::Outcome EntityRequest::read(const Input &input)
{
    const drawing::Database &database = m_session.drawing().database();
    PickedEntity picked;
    if (const auto *given = std::get_if<PickedEntity>(&input))
        picked = *given;
    else if (const auto *selection = std::get_if<Selection>(&input); selection && selection->size() == 1)
        picked.entity = selection->front();
    else if (const auto *text = std::get_if<std::u16string>(&input); text && lisp::Keywords(u"Last").match(*text))
        picked.entity = newestEntity(m_session);
    else if (const std::optional<Point> place = pointOf(input, m_session))
        picked = {entityAt(m_session, *place), place};
    const drawing::Record &record = database.record(picked.entity);
    if (record.kind != drawing::RecordKind::Entity || record.isGone())
        return refuse(u"No object found.");
    return answer(picked);
}

Request::Outcome AnyRequest::read(const Input &input)
{
    const std::u16string_view complaint = m_check ? m_check(input, m_session) : std::u16string_view();
    return complaint.empty() ? answer(input) : refuse(complaint);
}

} // namespace commands
