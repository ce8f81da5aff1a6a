#pragma once

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What programs do with files and folders as a whole. Paths are as filePath() gives them.
namespace lisp {

enum class CopyMode { NewFile, Append };

// The number of bytes copied. Nothing if the source is no readable file, if both are the same file, if the destination
// exists and is not to be appended to, or if it cannot be written completely; what was there before then stays.
std::optional<std::int64_t> copyFile(const QString &source, const QString &destination, CopyMode mode);
// False if there is no such file, or already one of the new name.
bool renameFile(const QString &from, const QString &to);
bool deleteFile(const QString &path);
bool makeDirectory(const QString &path); // the folder above must exist
bool isDirectory(const QString &path);
// In bytes, 0 for a folder; nothing if the file cannot be read.
std::optional<std::int64_t> fileSize(const QString &path);
// Local time of the last change.
std::optional<QDateTime> fileTime(const QString &path);

enum class DirectoryListing { Directories = -1, All = 0, Files = 1 };

// Names in a folder, sorted, that match a pattern of * and ? without regard to case; "*.*" is everything. The entries
// "." and ".." count as folders. Nothing if there is no such folder.
std::optional<std::vector<std::u16string>> directoryFiles(const QString &directory, std::u16string_view pattern,
                                                          DirectoryListing listing);

} // namespace lisp
