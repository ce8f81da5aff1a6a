#include "storage/SyncedWrite.h"

#include <cerrno>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool syncFile(const QFile &file)
{
#ifdef _WIN32
    return _commit(file.handle()) == 0;
#else
    return fdatasync(file.handle()) == 0; // with the size, which is needed to read the file
#endif
}

} // namespace

QString writeAndSync(QFile &file, const QByteArray &content)
{
    return writeAndSync(file, [&content](QIODevice &device) { return writeAll(device, content); });
}

QString writeAndSync(QFile &file, const ContentWriter &write)
{
    if (!write(file))
        return file.errorString();
    return syncFile(file) ? QString() : QString::fromLocal8Bit(std::generic_category().message(errno).c_str());
}

bool writeAll(QIODevice &file, QByteArrayView bytes)
{
    // What stops a write in the middle is told only when the rest is written.
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return true;
}
