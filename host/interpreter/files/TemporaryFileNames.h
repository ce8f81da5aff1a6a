#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lisp {

// A name for a temporary file that no file has, different each time: the folder, up to five characters of the pattern's
// name, three characters that count up, and the extension. The file is not made; what the program makes under the name
// is deleted when the process ends.
//
// Without a pattern the name is that of "$VL~~". Without a folder it is the pattern's, else that of the environment
// variables TMP and TEMP, else the platform's for temporary files. Without an extension it is the pattern's. Nothing if
// the folder does not exist.
std::optional<std::u16string> temporaryFileName(std::optional<std::u16string_view> pattern,
                                                std::optional<std::u16string_view> directory,
                                                std::optional<std::u16string_view> extension);

} // namespace lisp
