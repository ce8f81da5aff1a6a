#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/geometry/Vector.h"

#include <string>

// Short ways to read and write the groups of an entity.
namespace drawing {

Group integerGroup(int code, std::int64_t value);
Group realGroup(int code, double value);
Group textGroup(int code, std::u16string value);
Group pointGroup(int code, const geometry::Vector &place);
Group flatPointGroup(int code, const geometry::Vector &place); // of two coordinates

double turnInDegrees(double radians); // 0 to 360, as angles of groups are

// The value of the first group with the code; else the fallback.
std::int64_t integerOf(const GroupList &groups, int code, std::int64_t fallback = 0);
double realOf(const GroupList &groups, int code, double fallback = 0);
std::u16string textOf(const GroupList &groups, int code, std::u16string fallback = {});
geometry::Vector placeOf(const GroupList &groups, int code, const geometry::Vector &fallback = {});
geometry::Vector extrusionOf(const GroupList &groups);
bool hasGroup(const GroupList &groups, int code);

// Changes the first group with the code; when there is none, adds it: at the end before what is not the entity's own
// (extended data, embedded objects); in the first part of an entity whose geometry stands in two, as of TEXT and ARC;
// or behind the layer.
void setGroup(GroupList &groups, const Group &group);
void setGroupInFirstPart(GroupList &groups, const Group &group);
void setGroupBehindLayer(GroupList &groups, const Group &group);
void removeGroups(GroupList &groups, int code);

} // namespace drawing
