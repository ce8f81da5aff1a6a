#include "host/commands/Input.h"

#include <QString>

namespace commands {

namespace {

QString numberText(double number)
{
    constexpr int Digits = 12; // what people would type
    return QString::number(number, 'g', Digits);
}

struct Shown
{
    QString operator()(const std::u16string &text) const { return QString::fromStdU16String(text); }
    QString operator()(std::int64_t number) const { return QString::number(number); }
    QString operator()(double number) const { return numberText(number); }
    QString operator()(const Point &point) const
    {
        const QString flat = numberText(point.x) + u',' + numberText(point.y);
        return point.z != 0 ? flat + u',' + numberText(point.z) : flat;
    }
    // Nobody types these; who asks for objects says how many were found.
    QString operator()(const PickedEntity &) const { return {}; }
    QString operator()(const Selection &) const { return {}; }
};

} // namespace

std::u16string shown(const Input &input)
{
    return std::visit(Shown(), input).toStdU16String();
}

} // namespace commands
