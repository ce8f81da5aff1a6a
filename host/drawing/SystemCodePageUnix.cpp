#include "host/drawing/SystemCodePage.h"

#include <string>

#include <iconv.h>

namespace drawing {

namespace {

const iconv_t NoConverter = reinterpret_cast<iconv_t>(-1);

iconv_t converterOf(std::uintptr_t handle)
{
    return reinterpret_cast<iconv_t>(handle);
}

std::string converterName(unsigned number)
{
    constexpr unsigned FirstIso = 28591, LastIso = 28599, Macintosh = 10000;
    if (number >= FirstIso && number <= LastIso)
        return "ISO-8859-" + std::to_string(number - FirstIso + 1);
    return number == Macintosh ? "MACINTOSH" : "CP" + std::to_string(number);
}

} // namespace

SystemCodePage::SystemCodePage(unsigned number)
    : m_handle(reinterpret_cast<std::uintptr_t>(iconv_open("UTF-16LE", converterName(number).c_str())))
{
}

SystemCodePage::~SystemCodePage()
{
    if (converterOf(m_handle) != NoConverter)
        iconv_close(converterOf(m_handle));
}

char16_t SystemCodePage::character(std::string_view bytes) const
{
    const iconv_t converter = converterOf(m_handle);
    if (converter == NoConverter)
        return 0;
    char *in = const_cast<char *>(bytes.data()); // iconv does not write to it
    std::size_t inLeft = bytes.size();
    char16_t character = 0;
    char *out = reinterpret_cast<char *>(&character);
    std::size_t outLeft = sizeof character;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const bool converted = iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1);
    return converted && inLeft == 0 && outLeft == 0 ? character : u'\0';
}

} // namespace drawing
