#include "tests/platform/conformance/Child.h"

#include "platform/ModuleFileName.h"

std::u16string testchildPath()
{
    char16_t buffer[4096] = {};
    GetModuleFileNameW(nullptr, windowsText(buffer), static_cast<DWORD>(std::size(buffer)));
    const std::u16string own = buffer;
    const auto separator = own.find_last_of(u"/\\");
    const auto dot = own.find(u'.', separator);
    return own.substr(0, separator + 1) + u"testchild" + (dot != own.npos ? own.substr(dot) : u"");
}
