#pragma once

#include <array>
#include <numbers>
#include <string_view>

namespace lisp {

// Powers of the base units metre, kilogram, second, ampere, kelvin, mole, candela and radian.
using Dimension = std::array<int, 8>;

enum class Prefixes { None, Metric }; // whether kilo, milli and so on may stand before it

struct UnitRow
{
    std::u16string_view names; // "name|name|symbol"; plurals that are not just "s" or "es" too
    double factor;             // in base units
    Dimension dimension;
    Prefixes prefixes = Prefixes::None;
    double offset = 0; // of a temperature scale's zero, in kelvins
};

inline constexpr Dimension Number{}, Length{1}, MassUnit{0, 1}, TimeUnit{0, 0, 1}, Current{0, 0, 0, 1},
    Temperature{0, 0, 0, 0, 1}, Substance{0, 0, 0, 0, 0, 1}, Luminous{0, 0, 0, 0, 0, 0, 1},
    Angle{0, 0, 0, 0, 0, 0, 0, 1}, AreaUnit{2}, Volume{3}, Frequency{0, 0, -1}, Speed{1, 0, -1}, Acceleration{1, 0, -2},
    Force{1, 1, -2}, Pressure{-1, 1, -2}, Energy{2, 1, -2}, Power{2, 1, -3}, Charge{0, 0, 1, 1}, Voltage{2, 1, -3, -1},
    Capacitance{-2, -1, 4, 2}, Resistance{2, 1, -3, -2}, Conductance{-2, -1, 3, 2}, MagneticFlux{2, 1, -2, -1},
    FluxDensity{0, 1, -2, -1}, Inductance{2, 1, -2, -2}, Illuminance{-2, 0, 0, 0, 0, 0, 1};

inline constexpr double Inch = 0.0254, Foot = 12 * Inch, Yard = 3 * Foot, Mile = 5280 * Foot,
                        SurveyFoot = 1200.0 / 3937, Pound = 0.45359237, Gravity = 9.80665,
                        Gallon = 231 * Inch * Inch * Inch, ImperialGallon = 4.54609e-3, Turn = 2 * std::numbers::pi,
                        Bushel = 2150.42 * Inch * Inch * Inch;

// clang-format off
inline constexpr UnitRow unitTable[] = {
    // base units of the International System, and those with names of their own
    {u"meter|metre|m", 1, Length, Prefixes::Metric},
    {u"gram|gramme|g", 1e-3, MassUnit, Prefixes::Metric},
    {u"second|sec|s", 1, TimeUnit, Prefixes::Metric},
    {u"ampere|amp|A", 1, Current, Prefixes::Metric},
    {u"kelvin|K", 1, Temperature, Prefixes::Metric},
    {u"mole|mol", 1, Substance, Prefixes::Metric},
    {u"candela|cd", 1, Luminous, Prefixes::Metric},
    {u"radian|rad", 1, Angle, Prefixes::Metric},
    {u"hertz|Hz", 1, Frequency, Prefixes::Metric},
    {u"newton|N", 1, Force, Prefixes::Metric},
    {u"pascal|Pa", 1, Pressure, Prefixes::Metric},
    {u"joule|J", 1, Energy, Prefixes::Metric},
    {u"watt|W", 1, Power, Prefixes::Metric},
    {u"coulomb|C", 1, Charge, Prefixes::Metric},
    {u"volt|V", 1, Voltage, Prefixes::Metric},
    {u"farad|F", 1, Capacitance, Prefixes::Metric},
    {u"ohm", 1, Resistance, Prefixes::Metric},
    {u"siemens|S", 1, Conductance, Prefixes::Metric},
    {u"weber|Wb", 1, MagneticFlux, Prefixes::Metric},
    {u"tesla|T", 1, FluxDensity, Prefixes::Metric},
    {u"henry|henries|H", 1, Inductance, Prefixes::Metric},
    {u"lumen|lm", 1, Luminous, Prefixes::Metric},
    {u"lux|luxes|lx", 1, Illuminance, Prefixes::Metric},
    // beside it
    {u"liter|litre|l|L", 1e-3, Volume, Prefixes::Metric},
    {u"tonne|metricton", 1e3, MassUnit},
    {u"are", 1e2, AreaUnit, Prefixes::Metric},
    {u"hectare|ha", 1e4, AreaUnit},
    {u"bar", 1e5, Pressure, Prefixes::Metric},
    {u"angstrom", 1e-10, Length},
    {u"micron", 1e-6, Length},
    {u"dyne|dyn", 1e-5, Force},
    {u"erg", 1e-7, Energy},
    {u"calorie|cal", 4.184, Energy, Prefixes::Metric},
    {u"electronvolt|eV", 1.602176634e-19, Energy, Prefixes::Metric},
    {u"gauss|gausses", 1e-4, FluxDensity},
    {u"maxwell|Mx", 1e-8, MagneticFlux},
    {u"atmosphere|atm", 101325, Pressure},
    {u"torr|mmHg", 101325.0 / 760, Pressure},
    {u"carat", 2e-4, MassUnit},
    // time
    {u"minute|min", 60, TimeUnit},
    {u"hour|hr|h", 3600, TimeUnit},
    {u"day|d", 86400, TimeUnit},
    {u"week", 604800, TimeUnit},
    {u"fortnight", 1209600, TimeUnit},
    {u"year|yr", 31556952, TimeUnit}, // the mean one of the Gregorian calendar
    // lengths
    {u"inch|inches|in", Inch, Length},
    {u"foot|feet|ft", Foot, Length},
    {u"yard|yd", Yard, Length},
    {u"mile|mi", Mile, Length},
    {u"mil", Inch / 1000, Length},
    {u"rod|pole|perch", 16.5 * Foot, Length},
    {u"chain", 66 * Foot, Length},
    {u"link", 0.66 * Foot, Length},
    {u"furlong", 660 * Foot, Length},
    {u"league", 3 * Mile, Length},
    {u"fathom", 6 * Foot, Length},
    {u"hand", 4 * Inch, Length},
    {u"cubit", 18 * Inch, Length},
    {u"nauticalmile|nmile|nmi", 1852, Length},
    {u"surveyfoot|surveyfeet|ftUS", SurveyFoot, Length},
    {u"surveymile", 5280 * SurveyFoot, Length},
    {u"point", Inch / 72, Length},
    {u"pica", Inch / 6, Length},
    {u"astronomicalunit|AU", 149597870700, Length},
    {u"lightyear|ly", 9460730472580800, Length},
    {u"parsec|pc", 149597870700 * 648000 / std::numbers::pi, Length},
    // areas
    {u"acre", 43560 * Foot * Foot, AreaUnit},
    {u"section", Mile * Mile, AreaUnit},
    {u"township", 36 * Mile * Mile, AreaUnit},
    {u"circularmil", std::numbers::pi / 4 * (Inch / 1000) * (Inch / 1000), AreaUnit},
    {u"barn", 1e-28, AreaUnit},
    // volumes; those without "imperial" as used in the United States
    {u"gallon|gal", Gallon, Volume},
    {u"quart|qt", Gallon / 4, Volume},
    {u"pint|pt", Gallon / 8, Volume},
    {u"cup", Gallon / 16, Volume},
    {u"fluidounce|floz", Gallon / 128, Volume},
    {u"tablespoon|tbsp", Gallon / 256, Volume},
    {u"teaspoon|tsp", Gallon / 768, Volume},
    {u"barrel|bbl", 42 * Gallon, Volume}, // of petroleum
    {u"bushel", Bushel, Volume},
    {u"peck", Bushel / 4, Volume},
    {u"imperialgallon", ImperialGallon, Volume},
    {u"imperialquart", ImperialGallon / 4, Volume},
    {u"imperialpint", ImperialGallon / 8, Volume},
    {u"cc", 1e-6, Volume},
    {u"boardfoot|boardfeet", Foot * Foot * Inch, Volume},
    {u"cord", 128 * Foot * Foot * Foot, Volume},
    {u"stere", 1, Volume},
    // masses
    {u"pound|lb|lbs", Pound, MassUnit},
    {u"ounce|oz", Pound / 16, MassUnit},
    {u"dram", Pound / 256, MassUnit},
    {u"grain|gr", Pound / 7000, MassUnit},
    {u"ton|shortton", 2000 * Pound, MassUnit},
    {u"longton", 2240 * Pound, MassUnit},
    {u"stone", 14 * Pound, MassUnit},
    {u"hundredweight|cwt", 100 * Pound, MassUnit},
    {u"troyounce|ozt", 480 * Pound / 7000, MassUnit},
    {u"pennyweight|dwt", 24 * Pound / 7000, MassUnit},
    {u"slug", Pound * Gravity / Foot, MassUnit},
    // speeds, forces, pressures, energies, powers
    {u"knot|kn", 1852.0 / 3600, Speed},
    {u"mph", Mile / 3600, Speed},
    {u"kph", 1000.0 / 3600, Speed},
    {u"gravity", Gravity, Acceleration},
    {u"poundforce|lbf", Pound * Gravity, Force},
    {u"kip", 1000 * Pound * Gravity, Force},
    {u"kilogramforce|kgf|kilopond|kp", Gravity, Force},
    {u"poundal", Pound * Foot, Force},
    {u"psi", Pound * Gravity / (Inch * Inch), Pressure},
    {u"ksi", 1000 * Pound * Gravity / (Inch * Inch), Pressure},
    {u"psf", Pound * Gravity / (Foot * Foot), Pressure},
    {u"inHg", 3386.389, Pressure},
    {u"btu|BTU", 1055.05585262, Energy}, // of the International Table
    {u"therm", 105505585.262, Energy},
    {u"watthour|Wh", 3600, Energy, Prefixes::Metric},
    {u"horsepower|hp", 550 * Foot * Pound * Gravity, Power},
    {u"tonrefrigeration", 12000 * 1055.05585262 / 3600, Power},
    // angles and numbers
    {u"degree|deg", Turn / 360, Angle},
    {u"arcminute|arcmin", Turn / 21600, Angle},
    {u"arcsecond|arcsec", Turn / 1296000, Angle},
    {u"grad|gon|grade", Turn / 400, Angle},
    {u"circle|turn|revolution|rev|cycle", Turn, Angle},
    {u"quadrant", Turn / 4, Angle},
    {u"rpm", Turn / 60, Dimension{0, 0, -1, 0, 0, 0, 0, 1}},
    {u"unit|each", 1, Number},
    {u"percent", 0.01, Number},
    {u"pair", 2, Number},
    {u"dozen|doz", 12, Number},
    {u"score", 20, Number},
    {u"gross", 144, Number},
    {u"ream", 500, Number},
    // temperatures: scales whose zero is elsewhere
    {u"celsius|centigrade|degC", 1, Temperature, Prefixes::None, 273.15},
    {u"fahrenheit|degF", 5.0 / 9, Temperature, Prefixes::None, 459.67 * 5 / 9},
    {u"rankine|degR", 5.0 / 9, Temperature},
};

struct MetricPrefix
{
    std::u16string_view name, symbol;
    double factor;
};

inline constexpr MetricPrefix metricPrefixes[] = {
    {u"yotta", u"Y", 1e24}, {u"zetta", u"Z", 1e21}, {u"exa", u"E", 1e18},   {u"peta", u"P", 1e15},
    {u"tera", u"T", 1e12},  {u"giga", u"G", 1e9},   {u"mega", u"M", 1e6},   {u"kilo", u"k", 1e3},
    {u"hecto", u"h", 1e2},  {u"deka", u"da", 1e1},  {u"deca", u"da", 1e1},  {u"deci", u"d", 1e-1},
    {u"centi", u"c", 1e-2}, {u"milli", u"m", 1e-3}, {u"micro", u"u", 1e-6}, {u"nano", u"n", 1e-9},
    {u"pico", u"p", 1e-12}, {u"femto", u"f", 1e-15}, {u"atto", u"a", 1e-18}, {u"zepto", u"z", 1e-21},
};
// clang-format on

} // namespace lisp
