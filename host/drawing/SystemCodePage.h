#pragma once

#include <cstdint>
#include <string_view>

namespace drawing {

// What the system knows of a code page; one source for each system. Slow: TextCodec makes tables from it.
class SystemCodePage
{
public:
    explicit SystemCodePage(unsigned number); // Microsoft's number of the code page
    ~SystemCodePage();
    SystemCodePage(const SystemCodePage &) = delete;
    SystemCodePage &operator=(const SystemCodePage &) = delete;

    // The character that these bytes, one or two, are; 0 when they are none.
    char16_t character(std::string_view bytes) const;

private:
    std::uintptr_t m_handle; // what the system's own functions know the code page by
};

} // namespace drawing
