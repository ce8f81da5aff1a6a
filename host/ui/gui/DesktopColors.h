#pragma once

#include <QObject>

#include <functional>
#include <memory>

enum class ColorScheme { NoPreference, Dark, Light };

// Tells the colours that the desktop's user prefers: once when that is known, and on Linux whenever it changes, as long
// as the object lives. On Linux from the desktop's settings portal (org.freedesktop.portal.Settings, the key
// color-scheme of org.freedesktop.appearance), on Windows from the registry.
std::unique_ptr<QObject> followDesktopColors(std::function<void(ColorScheme)> tell);

// Gives the application's windows dark colours where the desktop prefers them and Qt has not chosen them by itself;
// otherwise Qt's own.
void useColorScheme(ColorScheme scheme);
