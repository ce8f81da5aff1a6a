#pragma once

#include <string>
#include <string_view>

namespace lisp {

// A day of the Julian calendar and its fraction by a picture such as "DDD, D MON YYYY - H:MMam/pm".
std::u16string datedText(double julianDate, std::u16string_view picture);

} // namespace lisp
