#include "host/window/linux/XServer.h"

#include <X11/Xlib.h>

namespace Host
{
bool xServerAnswers()
{
    ::Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) return false;
    XCloseDisplay(display);
    return true;
}
}  // namespace Host
