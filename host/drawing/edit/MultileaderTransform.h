#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/edit/Similarity.h"

namespace drawing {

GroupList transformedMultileader(const GroupList &groups, const Similarity &similarity);

} // namespace drawing
