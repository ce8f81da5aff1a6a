// Settings files of any content: reading ends, and what is written afterwards is read without damage and written so
// again.

#include "host/kernel/profile/SettingsReader.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QByteArray written = readSettings(bytes).text.toBytes();
    const ReadSettings again = readSettings(written);
    if (!again.damagedLines.empty() || again.text.toBytes() != written)
        std::abort();
    return 0;
}
