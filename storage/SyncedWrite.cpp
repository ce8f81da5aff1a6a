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
    // What stops a write in the middle is told only when the rest is written.
    for (qint64 written = 0, more = 0; written < content.size(); written += more) {
        more = file.write(content.constData() + written, content.size() - written);
        if (more <= 0)
            return file.errorString();
    }
    return syncFile(file) ? QString() : QString::fromLocal8Bit(std::generic_category().message(errno).c_str());
}
