#pragma once

#include "host/drawing/FileFormat.h"
#include "host/drawing/Group.h"
#include "host/drawing/TextCodec.h"

#include <optional>
#include <string>
#include <string_view>

namespace drawing {

// The bytes of `groups` where a record had the bytes `old`: groups that were there before keep the bytes that they had,
// so that only what is changed is written anew; comments, and lines that are no groups, stay. None when a value cannot
// be written (see GroupWriter).
std::optional<std::string> merged(std::string_view old, const GroupList &groups, const FileFormat &format,
                                  const TextCodec &codec);

} // namespace drawing
