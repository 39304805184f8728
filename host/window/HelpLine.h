#pragma once

#include <string>

#include "platform/Mutex.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Host
{
/// Shows lines to the user in the status line and the help text of the window, because a program that a desktop started
/// has no visible standard error. Lines that arrive before the window is open are shown together when it is.
class HelpLine
{
public:
    /// Any thread.
    void show(const std::string& line) EXCLUDES(lock);

    /// The window to show lines in, from `attach` until `detach`. The GUI thread.
    void attach(Gui::OrvGuiIF& openGui);
    void detach();

private:
    void showWaiting() EXCLUDES(lock);

    Mutex lock;
    std::string waiting GUARDED_BY(lock);
    Gui::OrvGuiIF* gui = nullptr;  // the GUI thread's
};
}  // namespace Host
