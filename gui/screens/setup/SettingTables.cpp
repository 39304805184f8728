#include "gui/screens/setup/SettingTables.h"

#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/recorder/RetroRecordManager.h"
#include "gui/OrvGuiIF.h"
#include "gui/framework/DisplayHeight.h"

namespace Gui::Setup
{
using namespace Backend;
using MidiEngine::MidiPort;
using RetroRecord::RetroRecordManager;
using Commands = OrvMessageManager;
using Settings = RegistrySettings;

namespace
{
constexpr int KILOBYTE = 1000;
constexpr int CHANNELS = 16;

template <auto operation>
void post(Commands& commands, bool on)
{
    (commands.*operation)(on);
}
template <auto operation>
void postToggle(Commands& commands, bool on)
{
    (commands.*operation)({on ? OnOffToggle::State::on : OnOffToggle::State::off}, true);
}

std::vector<MidiPort> getInputs(const OrvGuiIF& gui)
{
    return {gui.getMidiInputPorts().begin(), gui.getMidiInputPorts().end()};
}
std::vector<MidiPort> getOutputs(const OrvGuiIF& gui)
{
    return {gui.getMidiOutputPorts().begin(), gui.getMidiOutputPorts().end()};
}

/// Only those that are open can be chosen.
std::vector<ComboBox::Entry> getOutputEntries(const OrvGuiIF& gui)
{
    std::vector<ComboBox::Entry> entries;
    for (const MidiPort& port : gui.getMidiOutputPorts())
        entries.push_back({.text = QString::fromStdString(port.getDisplayName()),
                           .enabled = port.enabled && port.found && !port.couldNotOpen});
    return entries;
}

std::vector<ComboBox::Entry> getChannelEntries(const OrvGuiIF&)
{
    std::vector<ComboBox::Entry> entries;
    for (int channel = 1; channel <= CHANNELS; ++channel) entries.push_back({.text = QString::number(channel)});
    return entries;
}

constexpr Switch PLAYING_TABLE[] = {
    {"MIDI thru", "MIDI Thru: what comes in also sounds.", &Settings::getMidiThru,
     &postToggle<&Commands::postChangeMidiThru>},
    {"Click before or after zone transposes zone.",
     "A click on the piano keyboard beside a zone transposes that zone by octaves until it reaches there.",
     &Settings::getClickZoneChannelTranspose, &post<&Commands::postSetClickZoneChannelTranspose>}};

constexpr Switch DISPLAY_TABLE[] = {
    {"Show input events", "Shows the MIDI events that come in.", &Settings::getDisplayMidiInputEvents,
     &post<&Commands::postSetDisplayMidiInputEvents>},
    {"Show output events", "Shows the MIDI events that are played.", &Settings::getDisplayMidiOutputEvents,
     &post<&Commands::postSetDisplayMidiOutputEvents>},
    {"Number the lines", "Puts a number before each line of the display.", &Settings::getDisplayNumbers,
     &post<&Commands::postSetDisplayNumbers>},
    {"Large font", "Shows the events in a font that can be read from afar.", &Settings::getLargeDisplayFont,
     &post<&Commands::postSetLargeDisplayFont>}};

constexpr Switch WINDOW_TABLE[] = {
    {"Dock to bottom edge", "The bottom edge of the window stays where it is when screens are shown and hidden.",
     &Settings::getDockToBottomEdge, &post<&Commands::postSetDockToBottomEdge>},
    {"Always on top", "The window stays in front of those of other programs.", &Settings::getAlwaysOnTop,
     &post<&Commands::postSetAlwaysOnTop>},
    {"Metallic Border", "The window has a border of its own instead of that of the desktop.",
     &Settings::getUseSkinBorder, &post<&Commands::postSetUseSkinBorder>}};
}  // namespace

constexpr PortSide INPUTS{"MIDI inputs",
                          "MIDI Inputs: those with a mark are listened to. One that is not there is opened when it "
                          "comes back.",
                          &getInputs, &Commands::postEnableMidiInput};

constexpr PortSide OUTPUTS{"MIDI outputs",
                           "MIDI Outputs: those with a mark can be played on. One that is not there is opened when it "
                           "comes back.",
                           &getOutputs, &Commands::postEnableMidiOutput};

constexpr Choice DEFAULT_OUTPUT{
    "Default output:",
    "Default MIDI output",
    "Default MIDI output: where everything sounds that names no output of its own.",
    230,
    &getOutputEntries,
    [](const OrvGuiIF& gui) { return gui.getDefaultMidiOutput(); },
    [](const OrvGuiIF& gui, int output) { return output < 0 ? "None" : gui.getMidiOutputName(output); },
    [](Commands& commands, int output) {
        commands.postChangeDefaultMidiOutput({.kind = SelectType::Kind::specific, .value = output});
    }};

constexpr std::span<const Switch> PLAYING_SWITCHES(PLAYING_TABLE);

constexpr Switch GLOBAL_KEYBOARD{"Global keyboard", "", &Settings::getGlobalKeyboard,
                                 &postToggle<&Commands::postChangeGlobalKeyboard>};

constexpr Number MOUSE_SENSITIVITY{
    "Mouse sensitivity:",
    "1 /",
    "",
    "Mouse sensitivity",
    "Mouse sensitivity: faders and numbers that are dragged move one step for so many pixels. The higher, the finer.",
    "",
    "",
    1,
    100,
    1,
    &Settings::getMouseSensitivity,
    &Commands::postSetMouseSensitivity};

constexpr Switch RECORD_SWITCH{"Record what is played",
                               "Record: keeps what was played lately, so that it can be saved afterwards.",
                               &Settings::isRetroRecordEnabled, &post<&Commands::postEnableRetroRecord>};

constexpr Number RECORD_SIZE{
    "Buffer size:",
    "",
    "KB for each output",
    "Buffer size",
    "Buffer size: how much is kept of each output, the oldest going first. Hours of playing fit into 1000 KB.",
    "KB",
    "Changing the retrospective record buffer size will clear all existing data. Continue?",
    RetroRecordManager::SMALLEST_BUFFER / KILOBYTE,
    RetroRecordManager::LARGEST_BUFFER / KILOBYTE,
    KILOBYTE,
    &Settings::getRetroRecordBufferSize,
    &Commands::postSetRetroRecordBufferSize};

constexpr std::span<const Switch> DISPLAY_SWITCHES(DISPLAY_TABLE);

constexpr Number DISPLAY_HEIGHT{"Height:",
                                "",
                                "pixels",
                                "Height of the display",
                                "The height of the display. Its lower edge can be dragged, too.",
                                "",
                                "",
                                DisplayHeight::LOWEST,
                                DisplayHeight::HIGHEST,
                                1,
                                &Settings::getDisplayHeight,
                                &Commands::postSetDisplayHeight};

constexpr std::span<const Switch> WINDOW_SWITCHES(WINDOW_TABLE);

constexpr Number LITE_VELOCITY{"Velocity:",
                               "",
                               "",
                               "Velocity",
                               "Velocity: how hard the notes of such a host are struck, 1 to 127.",
                               "",
                               "",
                               1,
                               127,
                               1,
                               &Settings::getLiteVelocity,
                               &Commands::postSetLiteVelocity};

constexpr Choice LITE_CHANNEL{"Channel:",
                              "Channel",
                              "Channel: the one on which such a host plays.",
                              70,
                              &getChannelEntries,
                              [](const OrvGuiIF& gui) { return gui.getRegistrySettings().getLiteChannel(); },
                              [](const OrvGuiIF&, int channel) { return std::to_string(channel + 1); },
                              [](Commands& commands, int channel) { commands.postSetLiteChannel(channel); }};

constexpr Switch LITE_STACK_NOTES{"Stack Notes", "Stack Notes: such a host stacks its notes.",
                                  &Settings::getLiteStackNotes, &post<&Commands::postSetLiteStackNotes>};
}  // namespace Gui::Setup
