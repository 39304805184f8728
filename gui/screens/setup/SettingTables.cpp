#include "gui/screens/setup/SettingTables.h"

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/Settings.h"
#include "gui/framework/DisplayHeight.h"

namespace Gui::Setup
{
using namespace Backend;
using MidiEngine::MidiPort;
using Commands = OrvMessageManager;
using Settings = RegistrySettings;

namespace
{
constexpr int KILOBYTE = 1000;
constexpr const auto& RECORD = Backend::Settings::RETRO_RECORD_BUFFER_SIZE;

std::vector<MidiPort> getInputs(const OrvGuiIF& gui)
{
    return {gui.getMidiInputPorts().begin(), gui.getMidiInputPorts().end()};
}
std::vector<MidiPort> getOutputs(const OrvGuiIF& gui)
{
    return {gui.getMidiOutputPorts().begin(), gui.getMidiOutputPorts().end()};
}

/// Only open ports can be chosen.
std::vector<ComboBox::Entry> getOutputEntries(const OrvGuiIF& gui)
{
    std::vector<ComboBox::Entry> entries;
    for (const MidiPort& port : gui.getMidiOutputPorts())
        entries.push_back({.text = QString::fromStdString(port.getDisplayName()),
                           .enabled = port.enabled && port.found && !port.couldNotOpen});
    return entries;
}
}  // namespace

constexpr PortSide INPUTS{
    "MIDI inputs",
    "MIDI inputs: those with a check mark are received. A device that is not plugged in is opened when it is.",
    &getInputs, &Commands::postEnableMidiInput};

constexpr PortSide OUTPUTS{
    "MIDI outputs",
    "MIDI outputs: those with a check mark can be played. A device that is not plugged in is opened when it is.",
    &getOutputs, &Commands::postEnableMidiOutput};

constexpr Choice DEFAULT_OUTPUT{
    "Default output:",
    "Default MIDI output",
    "Default MIDI output: MIDI events without an output of their own are sent there.",
    230,
    &getOutputEntries,
    [](const OrvGuiIF& gui) { return gui.getDefaultMidiOutput(); },
    [](const OrvGuiIF& gui, int output) { return output < 0 ? "None" : gui.getMidiOutputName(output); },
    [](Commands& commands, int output) {
        commands.postChangeDefaultMidiOutput({.kind = SelectType::Kind::specific, .value = output});
    }};

constexpr Number MOUSE_SENSITIVITY{"Mouse sensitivity:",
                                   "1 /",
                                   "",
                                   "Mouse sensitivity",
                                   "Mouse sensitivity: pixels of mouse movement for one step when you drag a fader or "
                                   "a number, 1 to 100. Higher is finer.",
                                   "",
                                   "",
                                   1,
                                   100,
                                   1,
                                   &Settings::getMouseSensitivity,
                                   &Commands::postSetMouseSensitivity};

constexpr Number RECORD_SIZE{"Buffer size:",
                             "",
                             "KB for each output",
                             "Buffer size",
                             "Buffer size: 1 to 200000 KB for each output; 1000 KB hold hours of playing. When it is "
                             "full the oldest events are deleted.",
                             "KB",
                             "Changing the retrospective record buffer size will clear all existing data. Continue?",
                             RECORD.lowest / KILOBYTE,
                             RECORD.highest / KILOBYTE,
                             KILOBYTE,
                             &Settings::getRetroRecordBufferSize,
                             &Commands::postSetRetroRecordBufferSize};

constexpr Number DISPLAY_HEIGHT{"Height:",
                                "",
                                "pixels",
                                "Height of the display",
                                "Height of the display, 60 to 600 pixels. You can drag its lower edge, too.",
                                "",
                                "",
                                DisplayHeight::LOWEST,
                                DisplayHeight::HIGHEST,
                                1,
                                &Settings::getDisplayHeight,
                                &Commands::postSetDisplayHeight};
}  // namespace Gui::Setup
