#pragma once

#include <string>
#include <vector>

#include "backend/model/MidiPort.h"
#include "gui/framework/ComboBox.h"

namespace Backend
{
class OrvMessageManager;
class RegistrySettings;
}  // namespace Backend

namespace Gui
{
class OrvGuiIF;
}

/// The settings of the setup dialog that are not on or off (see `Switches.h`), a row each: label and help, how the
/// value is read, and the command that changes it.
namespace Gui::Setup
{
struct Number {
    const char* label;
    const char* before;  ///< the text before the field: "1 /"
    const char* after;   ///< the text after the field: "pixels"
    const char* name;    ///< in messages, and its accessible name
    const char* help;
    const char* unit;      ///< follows the limits in messages
    const char* question;  ///< asked before it changes; empty for none
    int lowest;            ///< as shown
    int highest;
    int scale;  ///< the stored value is the shown one times this
    int (Backend::RegistrySettings::*get)() const;
    void (Backend::OrvMessageManager::*post)(int value);
};

struct Choice {
    const char* label;
    const char* name;
    const char* help;
    int width;  ///< of its control, in logical pixels
    std::vector<ComboBox::Entry> (*getEntries)(const OrvGuiIF& gui);
    int (*get)(const OrvGuiIF& gui);
    /// The text shown for a value without an entry.
    std::string (*describe)(const OrvGuiIF& gui, int value);
    void (*post)(Backend::OrvMessageManager& commands, int value);
};

/// One direction of the MIDI ports.
struct PortSide {
    const char* name;
    const char* help;
    std::vector<Backend::MidiEngine::MidiPort> (*get)(const OrvGuiIF& gui);
    void (Backend::OrvMessageManager::*post)(int port, bool enabled);
};

extern const PortSide INPUTS;
extern const PortSide OUTPUTS;
extern const Choice DEFAULT_OUTPUT;
extern const Number MOUSE_SENSITIVITY;
extern const Number RECORD_SIZE;
extern const Number DISPLAY_HEIGHT;
extern const Choice WINDOW_SCALE;
extern const Choice SKIN;
extern const Choice ASK_BEFORE_LOSS;
extern const Choice PROGRAM_CHANGE_INPUT;
extern const Choice PROGRAM_CHANGE_CHANNEL;
}  // namespace Gui::Setup
