// Any text either reads or is refused with a LISP error, and what prin1 prints of it reads again.

#include "host/interpreter/Machine.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/Reader.h"

#include <QString>

#include <cstdint>
#include <cstdlib>

namespace {

void requireReadable(lisp::Machine &machine, const std::u16string &text)
{
    try {
        lisp::Reader reader(machine.heap(), machine.symbols(), text);
        if (!reader.read())
            std::abort();
    } catch (const lisp::LispError &) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    lisp::Machine machine({.stackValues = 65536, .frames = 8192});
    const std::u16string text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)).toStdU16String();
    lisp::SourcePositions positions;
    lisp::Reader reader(machine.heap(), machine.symbols(), text, &positions);
    try {
        while (const std::optional<lisp::Value> value = reader.read())
            requireReadable(machine, lisp::printed(*value));
    } catch (const lisp::LispError &) {
        if (reader.lineNumber() == 0 || reader.columnNumber() == 0)
            std::abort();
    }
    return 0;
}
