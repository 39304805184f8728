#pragma once

#include <mutex>
#include <string>

namespace Gui
{
class OrvGuiIF;
}

namespace Host
{
/// Shows lines for the user in the window's help, because nobody sees the standard error of a program on the desktop.
/// Those that come before the window are shown together when it is there.
class HelpLine
{
public:
    /// Any thread.
    void show(const std::string& line);

    /// From here until `leave`. The GUI thread.
    void showIn(Gui::OrvGuiIF& openGui);
    void leave();

private:
    void showWaiting();

    std::mutex lock;
    std::string waiting;           // guarded by the lock
    Gui::OrvGuiIF* gui = nullptr;  // the GUI thread's
};
}  // namespace Host
