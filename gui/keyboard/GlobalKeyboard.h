#pragma once

#include <set>
#include <string>

#include "gui/keyboard/KeyboardHookProxy.h"
#include "platform/WindowHandle.h"

namespace Backend::ComputerInput
{
class KeyConfigurationMap;
}

namespace Gui
{
/// Plays keys while other programs have the focus, as far as the platform allows. While it is on, keys that are bound
/// to functions are intercepted, except those bound as not global; other programs get the rest. A key whose only
/// function switches the global keyboard works at any time. Without its library every call is ignored. The GUI thread.
class GlobalKeyboard
{
public:
    /// Loads the library from the folder of the main library.
    GlobalKeyboard();

    /// The window that gets the keys until `close`.
    void open(const WindowHandle& receiver, bool on);
    void close();

    /// Ignored while it is closed.
    void setOn(bool on);
    void setKeys(const Backend::ComputerInput::KeyConfigurationMap& keys);

    /// One line that says why it does not work, or not fully; empty if it does.
    std::string getReason() const;

    /// The help text of its button: what it does, and that reason.
    static std::string describe(const std::string& reason);

    using Codes = std::set<std::int32_t>;
    /// The keys that are not intercepted.
    static Codes findExcluded(const Backend::ComputerInput::KeyConfigurationMap& keys);
    /// The keys whose only function, with any modifiers, is to switch it.
    static Codes findControlKeys(const Backend::ComputerInput::KeyConfigurationMap& keys);

private:
    KeyboardHookProxy proxy;
    WindowHandle window;
    Codes excluded;
    Codes controlKeys;
    std::string problem;
};
}  // namespace Gui
