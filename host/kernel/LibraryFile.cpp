#include "host/kernel/LibraryFile.h"

#include <QFile>

#include <cstring>
#include <elf.h>

namespace {

template <class Header> bool readHeader(QFile &file, quint64 offset, Header &header)
{
    return file.seek(static_cast<qint64>(offset)) &&
           file.read(reinterpret_cast<char *>(&header), sizeof header) == static_cast<qint64>(sizeof header);
}

bool isInside(const Elf64_Phdr &part, quint64 fileSize)
{
    return part.p_offset <= fileSize && part.p_filesz <= fileSize - part.p_offset;
}

} // namespace

bool isWholeLibrary(const QString &path)
{
    QFile file(path);
    Elf64_Ehdr header{};
    if (!file.open(QIODevice::ReadOnly) || !readHeader(file, 0, header) ||
        std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64 ||
        header.e_phentsize != sizeof(Elf64_Phdr))
        return false;
    const auto size = static_cast<quint64>(file.size());
    for (quint64 i = 0; i < header.e_phnum; ++i) {
        Elf64_Phdr part{};
        if (!readHeader(file, header.e_phoff + i * sizeof part, part) || !isInside(part, size))
            return false;
    }
    return true;
}
