#pragma once

#include <cerrno>
#include <sys/xattr.h>

// Whether a folder is in a file system that keeps extended attributes, in which Linux has all attributes of files but
// read-only. Some kinds of temporary and network file systems do not.
inline bool keepsExtendedAttributes(const char *folder)
{
    return ::setxattr(folder, "user.probe", "", 0, 0) == 0 || errno != ENOTSUP;
}
