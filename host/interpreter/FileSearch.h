#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lisp {

// The full path of an existing file or folder. A bare name is looked for in the current folder and then in the given
// ones; a name with a folder in it only there. Both / and \ separate.
std::optional<std::u16string> findFile(std::u16string_view name, const std::vector<std::u16string> &folders);

} // namespace lisp
