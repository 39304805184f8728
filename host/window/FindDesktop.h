#pragma once

#include <string>

namespace Host
{
/// Where a window can be opened.
struct Desktop {
    std::string platform;  ///< Qt's name for it, "xcb" or "wayland"; empty if there is none
    std::string whyNot;    ///< then a clause for the user: "there is no display"
};

/// Looks whether a display really answers, since Qt ends the whole process where none does. An X display is preferred:
/// only there a window can be placed. What QT_QPA_PLATFORM names is taken, after the same look.
Desktop findDesktop();
}  // namespace Host
