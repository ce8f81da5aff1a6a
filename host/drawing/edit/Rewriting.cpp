#include "host/drawing/edit/Rewriting.h"

#include "host/drawing/edit/GroupEditing.h"

#include <algorithm>
#include <iterator>

namespace drawing {

namespace {

bool isExtended(const Group &group)
{
    return group.code >= groupcode::ExtendedString;
}

// Where what is the type's own begins, behind what all entities have; the end where no marker tells it.
GroupList::const_iterator geometryIn(const GroupList &groups)
{
    const auto common = std::ranges::find(groups, groupcode::Subclass, &Group::code);
    return common != groups.end() ? std::ranges::find(common + 1, groups.end(), groupcode::Subclass, &Group::code)
                                  : common;
}

GroupList rewritten(const GroupList &old, const GroupList &made)
{
    const auto oldGeometry = geometryIn(old), geometry = geometryIn(made);
    if (oldGeometry == old.end() || geometry == made.end())
        return withExtendedDataOf(old, made);
    GroupList groups(old.begin(), oldGeometry);
    setGroup(groups, made.front());
    groups.insert(groups.end(), geometry, made.end());
    return withExtendedDataOf(old, std::move(groups));
}

} // namespace

GroupList withExtendedDataOf(const GroupList &old, GroupList groups)
{
    if (std::ranges::none_of(groups, isExtended))
        std::ranges::copy_if(old, std::back_inserter(groups), isExtended);
    return groups;
}

bool rewriteEntity(Drawing &drawing, RecordId entity, const GroupList &made)
{
    Database &database = drawing.database();
    const GroupList groups = rewritten(database.groups(entity), made);
    if (textOf(made, groupcode::Type) == database.type(entity))
        return database.replace(entity, groups);
    if (!database.turnInto(entity, groups))
        return false;
    database.move(entity, database.endOf(database.record(entity).container));
    return true;
}

} // namespace drawing
