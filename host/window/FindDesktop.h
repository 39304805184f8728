#pragma once

#include <string>

namespace Host
{
/// The window system to open the window in.
struct Desktop {
    std::string platform;  ///< Qt's name for it, "xcb", "wayland" or "windows"; empty if there is none
    std::string whyNot;    ///< then a clause for the user: "there is no display"
};

/// Connects to the display before Qt does, because Qt ends the process where none answers. An X display is preferred:
/// only there can a program place its window. The platform of QT_QPA_PLATFORM is used if its display answers. On
/// Windows there always is one.
Desktop findDesktop();
}  // namespace Host
