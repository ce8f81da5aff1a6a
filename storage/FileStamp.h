#pragma once

#include <QString>

#include <cstdint>

// What tells without reading it whether a file is still the one that was read. A file that was replaced has another
// stamp, except for a coincidence: several replacements within one tick of the file system's clock that end on the same
// number and size. Who changes a file reads it again under its lock and does not rely on the stamp.
struct FileStamp
{
    std::uint64_t number = 0;   // of the file in its file system
    std::int64_t modified = -1; // in nanoseconds, on Windows in hundreds of them; -1: there is no file
    std::int64_t size = 0;

    static FileStamp of(const QString &path);

    bool exists() const { return modified != -1; }
    bool operator==(const FileStamp &) const = default;
};
