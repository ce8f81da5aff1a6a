#include "platform/windows/ImportTable.h"

#include <cstring>

namespace {

// What stands at an offset of a file that is loaded.
template <class Part> Part *partAt(HMODULE library, DWORD offset)
{
    return reinterpret_cast<Part *>(reinterpret_cast<BYTE *>(library) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR *firstImport(HMODULE library)
{
    const auto *dosHeader = partAt<IMAGE_DOS_HEADER>(library, 0);
    const auto *headers = partAt<IMAGE_NT_HEADERS>(library, static_cast<DWORD>(dosHeader->e_lfanew));
    const IMAGE_DATA_DIRECTORY &directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return directory.Size == 0 ? nullptr : partAt<IMAGE_IMPORT_DESCRIPTOR>(library, directory.VirtualAddress);
}

// The loader leaves the addresses where they cannot be written.
void store(void *address, ULONGLONG &place)
{
    DWORD protection = 0;
    if (!VirtualProtect(&place, sizeof place, PAGE_READWRITE, &protection))
        return;
    place = reinterpret_cast<ULONGLONG>(address);
    VirtualProtect(&place, sizeof place, protection, &protection);
}

} // namespace

void replaceImport(HMODULE library, const char *name, void *replacement)
{
    const IMAGE_IMPORT_DESCRIPTOR *import = firstImport(library);
    for (; import != nullptr && import->Name != 0; ++import) {
        const auto *names = partAt<IMAGE_THUNK_DATA>(library, import->OriginalFirstThunk);
        auto *addresses = partAt<IMAGE_THUNK_DATA>(library, import->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const auto *entry = partAt<IMAGE_IMPORT_BY_NAME>(library, static_cast<DWORD>(names->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char *>(entry->Name), name) == 0)
                store(replacement, addresses->u1.Function);
        }
    }
}
