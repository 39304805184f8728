#pragma once

#include <string>

namespace Host
{
/// The window system to open the window in.
struct Desktop {
    std::string platform;  ///< Qt's name for it, "xcb" or "wayland"; empty if there is none
    std::string whyNot;    ///< then a clause for the user: "there is no display"
};

/// Connects to the display before Qt does, because Qt ends the process where none answers. An X display is preferred:
/// only there can a program place its window. The platform of QT_QPA_PLATFORM is used if its display answers.
Desktop findDesktop();
}  // namespace Host
