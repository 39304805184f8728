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
    void (*post)(Backend::OrvMessageManager& commands, int value);
};

/// A line of text.
struct Text {
    const char* label;
    const char* name;
    const char* help;
    std::string (*get)(const OrvGuiIF& gui);
    /// Why a text is invalid, empty if it is not; null for a line that cannot be changed.
    std::string (*findFault)(const std::string& text);
    void (*post)(Backend::OrvMessageManager& commands, const std::string& text);
};

/// A file, typed or chosen by a dialog.
struct File {
    const char* label;
    const char* name;
    const char* help;
    const char* chooseName;  ///< of the button
    const char* chooseHelp;
    const char* title;    ///< of the dialog
    const char* filter;   ///< "Bank Files (*.bnk)"
    const char* missing;  ///< the fault of a file that is not there, "%1"
    const std::string& (*get)(const Backend::RegistrySettings& settings);
    void (*post)(Backend::OrvMessageManager& commands, const std::string& path);
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
extern const File DEFAULT_BANK;
extern const Text INSTALL_FOLDER;
extern const Number SYNTHESIZER_VOLUME;
extern const File SOUND_FONT;
extern const Text CLIENT_NAME;
extern const Choice CLOCK_IN;
extern const Choice CLOCK_OUT;
}  // namespace Gui::Setup
