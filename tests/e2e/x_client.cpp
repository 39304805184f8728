#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Another program on the display of the end-to-end tests:
///
///     x_client close TITLE    asks the window of that title to close, as the desktop does
///     x_client stay           opens a window that takes the keyboard focus, says "here", and stays until its standard
///                             input ends
///
/// Exit status 1 if there is no such display or window.
namespace
{
struct Closer {
    void operator()(Display* display) const { XCloseDisplay(display); }
};
struct Freer {
    void operator()(void* memory) const { XFree(memory); }
};

std::string titleOf(Display* display, Window window)
{
    char* name = nullptr;
    if (XFetchName(display, window, &name) == 0) return {};
    const std::unique_ptr<char, Freer> owned(name);
    return name;
}

std::vector<Window> childrenOf(Display* display, Window window)
{
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return {};
    const std::unique_ptr<Window, Freer> owned(children);
    return {children, children + count};
}

int close(Display* display, std::string_view title)
{
    for (const Window window : childrenOf(display, DefaultRootWindow(display))) {
        if (titleOf(display, window) != title) continue;
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
        XSendEvent(display, window, False, NoEventMask, &event);
        XSync(display, False);
        return 0;
    }
    return 1;
}

int stay(Display* display)
{
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 900, 0, 50, 50, 0, 0, 0);
    XSelectInput(display, window, StructureNotifyMask | FocusChangeMask | KeyPressMask);
    XMapRaised(display, window);
    for (XEvent event; XNextEvent(display, &event), event.type != FocusIn;)
        if (event.type == MapNotify) XSetInputFocus(display, window, RevertToParent, CurrentTime);
    std::puts("here");
    std::fflush(stdout);
    while (std::getchar() != EOF) {}
    return 0;
}
}  // namespace

int main(int argc, char** argv)
{
    const std::string_view task = argc > 1 ? argv[1] : "";
    const std::unique_ptr<Display, Closer> display(XOpenDisplay(nullptr));
    if (!display) return 1;
    if (task == "close" && argc == 3) return close(display.get(), argv[2]);
    return task == "stay" ? stay(display.get()) : 1;
}
