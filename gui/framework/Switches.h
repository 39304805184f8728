#pragma once

#include <span>

class QAbstractButton;

namespace Backend
{
class OrvMessageManager;
class RegistrySettings;
}  // namespace Backend

namespace Gui
{
/// A setting that is on or off: what every control that shows it has in common.
struct Switch {
    const char* name;  ///< in the setup dialog, and the accessible name
    const char* help;
    bool (Backend::RegistrySettings::*get)() const;
    void (*post)(Backend::OrvMessageManager& commands, bool on);
};

/// The settings that are on or off, a row each.
namespace Switches
{
extern const Switch MIDI_THRU;
extern const Switch GLOBAL_KEYBOARD;  ///< its help: `GlobalKeyboard::describe`
extern const Switch KEEP_NOTES;
extern const Switch CONTINUE_LAST;
extern const Switch RECORD;
extern const Switch REVERB;
extern const Switch CONNECT_SOUND;
extern const Switch TRANSPORT;
extern const std::span<const Switch> DISPLAY;  ///< input and output events, numbers, times, large font
extern const std::span<const Switch> WINDOW;   ///< docking, always on top, border
}  // namespace Switches

/// Makes the button a latch with the name and the help of the setting, which posts it when the user clicks. Whether it
/// is down follows the settings that the backend reports. `commands` must outlive the button.
void makeSwitch(QAbstractButton& button, const Switch& setting, Backend::OrvMessageManager& commands);
}  // namespace Gui
