#include "host/drawing/Group.h"

#include <algorithm>

namespace drawing {

const Group *findGroup(const GroupList &groups, int code)
{
    const auto found =
        std::find_if(groups.begin(), groups.end(), [code](const Group &group) { return group.code == code; });
    return found == groups.end() ? nullptr : &*found;
}

} // namespace drawing
