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
/// Playing while other programs have the focus, as far as the platform lets us. While it is on, the keys that do
/// something here are taken from the others, but those that are bound as not global; the rest stays theirs. A key that
/// does nothing but switch it works at any time. Without its library all this is nothing. The GUI thread.
class GlobalKeyboard
{
public:
    /// Looks for the library beside ours.
    GlobalKeyboard();

    /// The window that gets the keys, from now until `close`.
    void open(const WindowHandle& receiver, bool on);
    void close();

    /// Nothing while it is closed.
    void setOn(bool on);
    void setKeys(const Backend::ComputerInput::KeyConfigurationMap& keys);

    /// One line that says why it does not do all that it should; empty if it does.
    std::string getReason() const;

    /// What its button does, and that reason.
    static std::string describe(const std::string& reason);

    using Codes = std::set<std::int32_t>;
    /// The keys of the board that stay with the other programs.
    static Codes findExcluded(const Backend::ComputerInput::KeyConfigurationMap& keys);
    /// Those that do nothing but switch it, with no modifier anything else.
    static Codes findControlKeys(const Backend::ComputerInput::KeyConfigurationMap& keys);

private:
    KeyboardHookProxy proxy;
    WindowHandle window;
    Codes excluded;
    Codes controlKeys;
    std::string problem;
};
}  // namespace Gui
