#pragma once

#include <QString>

#include <string_view>

namespace lisp {

// The same text, whatever its units are: QString's own conversions drop a first U+FEFF.
inline QString toQString(std::u16string_view text)
{
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

} // namespace lisp
