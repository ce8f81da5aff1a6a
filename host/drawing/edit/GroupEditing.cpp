#include "host/drawing/edit/GroupEditing.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr int ExtrusionCode = 210;
constexpr int FlatDimensions = 2;

bool changeGroup(GroupList &groups, const Group &group)
{
    const auto found = std::ranges::find(groups, group.code, &Group::code);
    if (found == groups.end())
        return false;
    found->value = group.value;
    return true;
}

} // namespace

Group integerGroup(int code, std::int64_t value)
{
    return {code, value};
}

Group realGroup(int code, double value)
{
    return {code, value};
}

Group textGroup(int code, std::u16string value)
{
    return {code, std::move(value)};
}

Group pointGroup(int code, const geometry::Vector &place)
{
    return {code, Point{place.x, place.y, place.z}};
}

Group flatPointGroup(int code, const geometry::Vector &place)
{
    return {code, Point{place.x, place.y, 0, FlatDimensions}};
}

double turnInDegrees(double radians)
{
    constexpr double Full = 360, Tiny = 1e-12;
    double angle = std::fmod(radians * (Full / geometry::FullTurn), Full);
    if (angle < 0)
        angle += Full;
    return Full - angle < Tiny ? 0 : angle;
}

std::int64_t integerOf(const GroupList &groups, int code, std::int64_t fallback)
{
    const auto *value = findValue<std::int64_t>(groups, code);
    return value ? *value : fallback;
}

double realOf(const GroupList &groups, int code, double fallback)
{
    const auto *value = findValue<double>(groups, code);
    return value ? *value : fallback;
}

std::u16string textOf(const GroupList &groups, int code, std::u16string fallback)
{
    const auto *value = findValue<std::u16string>(groups, code);
    return value ? *value : fallback;
}

geometry::Vector placeOf(const GroupList &groups, int code, const geometry::Vector &fallback)
{
    const auto *value = findValue<Point>(groups, code);
    return value ? geometry::vectorOf(*value) : fallback;
}

geometry::Vector extrusionOf(const GroupList &groups)
{
    return placeOf(groups, ExtrusionCode, {0, 0, 1});
}

bool hasGroup(const GroupList &groups, int code)
{
    return findGroup(groups, code) != nullptr;
}

void setGroup(GroupList &groups, const Group &group)
{
    if (changeGroup(groups, group))
        return;
    const auto isForeign = [](const Group &one) {
        return one.code == groupcode::EmbeddedObject || one.code >= groupcode::ExtendedString;
    };
    groups.insert(std::ranges::find_if(groups, isForeign), group);
}

void setGroupInFirstPart(GroupList &groups, const Group &group)
{
    constexpr auto PartsWithCommon = 3;
    if (changeGroup(groups, group))
        return;
    if (std::ranges::count(groups, groupcode::Subclass, &Group::code) < PartsWithCommon)
        return setGroup(groups, group);
    auto marker = groups.begin();
    for (int count = 0; count < PartsWithCommon; ++marker)
        count += marker->code == groupcode::Subclass ? 1 : 0;
    groups.insert(marker - 1, group);
}

void setGroupBehindLayer(GroupList &groups, const Group &group)
{
    if (changeGroup(groups, group))
        return;
    const auto layer = std::ranges::find(groups, groupcode::Layer, &Group::code);
    groups.insert(layer != groups.end() ? layer + 1 : groups.end(), group);
}

void removeGroups(GroupList &groups, int code)
{
    std::erase_if(groups, [code](const Group &group) { return group.code == code; });
}

} // namespace drawing
