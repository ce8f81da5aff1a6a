#include "host/kernel/variables/VariableRules.h"

#include <algorithm>
#include <cstdint>

namespace {

bool isInRange(const VariableRule &rule, double number)
{
    const bool isHighEnough = rule.isAboveMinimum ? number > rule.minimum : number >= rule.minimum;
    return isHighEnough && number <= rule.maximum;
}

bool isAllowed(const VariableRule &rule, int number)
{
    const bool isListed = rule.values.empty() || std::ranges::find(rule.values, number) != rule.values.end();
    return isListed && isInRange(rule, number) && number == static_cast<std::int16_t>(number);
}

} // namespace

bool isInRange(const VariableRow &variable, const VariableValue &value)
{
    const VariableRule &rule = variable.rule;
    if (const int *number = std::get_if<int>(&value))
        return isAllowed(rule, *number);
    if (const double *number = std::get_if<double>(&value))
        return isInRange(rule, *number);
    const auto *point = std::get_if<LispPoint>(&value);
    const bool isFlat = variable.type == VariableType::Point2d;
    return !point || (isInRange(rule, point->x) && isInRange(rule, point->y) && (isFlat || isInRange(rule, point->z)));
}
