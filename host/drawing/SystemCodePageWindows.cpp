#include "host/drawing/SystemCodePage.h"

#include <windows.h>

namespace drawing {

SystemCodePage::SystemCodePage(unsigned number) : m_handle(number) {}

SystemCodePage::~SystemCodePage() = default;

char16_t SystemCodePage::character(std::string_view bytes) const
{
    wchar_t characters[4] = {};
    const int count =
        MultiByteToWideChar(static_cast<UINT>(m_handle), MB_ERR_INVALID_CHARS, bytes.data(),
                            static_cast<int>(bytes.size()), characters, static_cast<int>(std::size(characters)));
    return count == 1 ? static_cast<char16_t>(characters[0]) : u'\0';
}

} // namespace drawing
