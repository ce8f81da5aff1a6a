#include "host/interpreter/text/AngularUnits.h"
#include "host/interpreter/text/LinearUnits.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <numbers>

namespace {

rc::Gen<double> lengths()
{
    return rc::gen::map(rc::gen::inRange<std::int64_t>(-1'000'000'000'000, 1'000'000'000'000),
                        [](std::int64_t millionths) { return static_cast<double>(millionths) / 1e6; });
}

// Half of the smallest step that the text shows.
double roundingError(double number, lisp::LinearUnits mode, int precision)
{
    switch (mode) {
    case lisp::LinearUnits::Scientific:
        return std::pow(10.0, std::floor(std::log10(std::fabs(number) + 1e-300)) - precision);
    case lisp::LinearUnits::Architectural:
    case lisp::LinearUnits::Fractional:
        return std::ldexp(0.5, -precision);
    default:
        return 0.5 * std::pow(10.0, -precision);
    }
}

RC_GTEST_PROP(UnitsProperty, distofReadsWhatRtosWrites, ())
{
    const double number = *lengths();
    const auto mode = static_cast<lisp::LinearUnits>(*rc::gen::inRange(1, 6));
    const int precision = *rc::gen::inRange(0, 9);
    const lisp::UnitStyle style{*rc::gen::inRange(0, 2), *rc::gen::inRange(0, 16)};
    const std::u16string text = lisp::rtos(number, mode, precision, style);
    const std::optional<double> read = lisp::distof(text, mode);
    RC_ASSERT(read.has_value());
    RC_ASSERT(std::fabs(*read - number) <= roundingError(number, mode, precision) * 1.0001 + 1e-9);
}

RC_GTEST_PROP(UnitsProperty, noFootHasTwelveInches, ())
{
    const double feet = *rc::gen::inRange(0, 1000);
    const double number = feet * 12 - *rc::gen::inRange(0, 1000) / 1e7;
    const int precision = *rc::gen::inRange(0, 9);
    for (const auto mode : {lisp::LinearUnits::Engineering, lisp::LinearUnits::Architectural}) {
        const std::u16string text = lisp::rtos(number, mode, precision, {0, 1});
        RC_ASSERT(text.find(u"-12") == std::u16string::npos);
    }
}

RC_GTEST_PROP(UnitsProperty, angtofReadsWhatAngtosWrites, ())
{
    const double angle = *rc::gen::inRange(-20'000'000, 20'000'000) / 1e6;
    const auto units = static_cast<lisp::AngularUnits>(*rc::gen::inRange(0, 5));
    const lisp::UnitStyle style{*rc::gen::inRange(0, 2), *rc::gen::inRange(0, 16)};
    const std::optional<double> read = lisp::angtof(lisp::angtos(angle, units, 8, style), units);
    RC_ASSERT(read.has_value());
    RC_ASSERT(std::fabs(std::remainder(*read - angle, 2 * std::numbers::pi)) < 1e-7);
}

RC_GTEST_PROP(UnitsProperty, anyTextIsReadOrRefused, (std::u16string text))
{
    for (int mode = 1; mode <= 5; ++mode)
        lisp::distof(text, *lisp::linearUnits(mode));
    for (int units = 0; units <= 4; ++units)
        lisp::angtof(text, *lisp::angularUnits(units));
}

RC_GTEST_PROP(UnitsProperty, anyNumberIsWritten, (double number, int precision))
{
    for (int mode = 1; mode <= 5; ++mode)
        RC_ASSERT(!lisp::rtos(number, *lisp::linearUnits(mode), precision, {}).empty());
    for (int units = 0; units <= 4; ++units)
        RC_ASSERT(!lisp::angtos(number, *lisp::angularUnits(units), precision, {}).empty());
}

} // namespace
