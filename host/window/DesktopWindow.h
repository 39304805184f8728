#pragma once

#include <functional>
#include <memory>
#include <string>

#include "api/OrvGuiIF.h"
#include "host/window/Frame.h"

namespace Host
{
/// A backend's window, open on the desktop for the lifetime of this object. The GUI thread, while the backend runs.
class DesktopWindow
{
public:
    /// `closeRequested` is called when the user closes the window.
    DesktopWindow(Backend::OrvIF& orv, std::function<void()> closeRequested);
    ~DesktopWindow();

    DesktopWindow(const DesktopWindow&) = delete;
    DesktopWindow& operator=(const DesktopWindow&) = delete;

    Gui::OrvGuiIF& getGui() { return *gui; }
    Frame& getFrame() { return frame; }

private:
    Frame frame;
    std::unique_ptr<Gui::OrvGuiIF> gui;
};
}  // namespace Host
