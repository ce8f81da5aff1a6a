#pragma once

#include <string>
#include <string_view>

namespace geometry {

// The string as it is seen: %%d, %%p and %%c are the signs of degrees, plus or minus and diameter, %%nnn the character
// with that number, %%% a percent sign; %%u, %%o and %%k, which switch lines at the text, are left out.
std::u16string withoutTextCodes(std::u16string_view text);

} // namespace geometry
