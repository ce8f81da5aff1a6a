#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

// Parts of file names, by the text alone. Both / and \ separate on every platform.
namespace lisp {

// The name as the platform's file functions take it.
QString filePath(std::u16string_view name);

// Folder and extension left out: "bar" of "/foo/bar.txt".
std::u16string fileNameBase(std::u16string_view name);
// "/foo" of "/foo/bar.txt", with its separator only where it is a root; empty if there is none.
std::u16string fileNameDirectory(std::u16string_view name);
// ".txt" of "/foo/bar.txt".
std::optional<std::u16string> fileNameExtension(std::u16string_view name);

} // namespace lisp
