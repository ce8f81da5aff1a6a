#pragma once

#include <Qt>

// A title, the system menu and a close button: what every dialog of the module has.
inline constexpr Qt::WindowFlags dialogFlags =
    Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
