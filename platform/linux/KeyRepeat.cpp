#include "platform/KeyRepeat.h"

#include <X11/XKBlib.h>

KeyRepeat getKeyRepeat()
{
    KeyRepeat repeat;
    Display* const display = XOpenDisplay(nullptr);
    if (display == nullptr) return repeat;
    // Without this handler a display that ends meanwhile ends this process.
    XSetIOErrorExitHandler(
        display, [](Display*, void*) {}, nullptr);
    unsigned int delay = 0;
    unsigned int interval = 0;
    if (XkbGetAutoRepeatRate(display, XkbUseCoreKbd, &delay, &interval) == True && interval > 0)
        repeat = {.delay = delay, .interval = interval};
    XCloseDisplay(display);
    return repeat;
}
