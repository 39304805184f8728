#include "gui/screens/setup/SettingTables.h"

#include <algorithm>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/ProgramChangeInput.h"
#include "backend/model/Settings.h"
#include "gui/framework/DisplayHeight.h"
#include "gui/framework/GdiManager.h"

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

/// "None", then all ports.
template <class Ports>
std::vector<ComboBox::Entry> getPortEntries(const Ports& ports)
{
    std::vector<ComboBox::Entry> entries{{.text = "None"}};
    for (const MidiPort& port : ports) entries.push_back({.text = QString::fromStdString(port.getDisplayName())});
    return entries;
}

constexpr std::size_t LONGEST_CLIENT_NAME = 63;
constexpr int SCALES[] = {75, 100, 125, 150, 175, 200, 250, 300, 400};

std::vector<ComboBox::Entry> getScaleEntries(const OrvGuiIF&)
{
    std::vector<ComboBox::Entry> entries;
    for (const int percent : SCALES) entries.push_back({.text = QString::number(percent) + " %"});
    return entries;
}

int getScale(const OrvGuiIF& gui)
{
    const int percent = gui.getRegistrySettings().get<Backend::Settings::WINDOW_SCALE>();
    const auto* const entry = std::ranges::find(SCALES, percent);
    return entry == std::end(SCALES) ? -percent : static_cast<int>(entry - SCALES);
}

std::vector<ComboBox::Entry> getSkinEntries(const OrvGuiIF&)
{
    std::vector<ComboBox::Entry> entries;
    for (const auto& skin : GdiManager::SKINS) entries.push_back({.text = QString::fromLatin1(skin.name)});
    return entries;
}
}  // namespace

/// A scale that is not in the list, as it is dragged, is below 0.
constexpr Choice WINDOW_SCALE{
    "Scale:",
    "Scale of the window",
    "Scale of the window: of all texts and controls. The side edges of the window change it, too. It is never wider "
    "than "
    "the desktop.",
    90,
    &getScaleEntries,
    &getScale,
    [](const OrvGuiIF&, int scale) { return std::to_string(-scale) + " %"; },
    [](Commands& commands, int entry) {
        if (entry >= 0)
            commands.postSetting(SETTING<Backend::Settings::WINDOW_SCALE>(SCALES[static_cast<std::size_t>(entry)]));
    }};

constexpr Choice SKIN{
    "Colours:",
    "Colours of the window",
    "Colours of the window: classic, high contrast, or light for a bright place.",
    150,
    &getSkinEntries,
    [](const OrvGuiIF& gui) { return gui.getRegistrySettings().get<Backend::Settings::SKIN>(); },
    [](const OrvGuiIF&, int) { return std::string(); },
    [](Commands& commands, int skin) { commands.postSetting(SETTING<Backend::Settings::SKIN>(skin)); }};

constexpr Choice ASK_BEFORE_LOSS{
    "Ask before changes are lost:",
    "Ask before changes are lost",
    "When to ask before changes of a program are lost that are not saved. Where a program change does not ask, the "
    "edited "
    "program is kept until Orvane ends or a bank is loaded.",
    230,
    [](const OrvGuiIF&) {
        return std::vector<ComboBox::Entry>{
            {.text = "At every program change"}, {.text = "Before closing and loading"}, {.text = "Never"}};
    },
    [](const OrvGuiIF& gui) { return gui.getRegistrySettings().get<Backend::Settings::ASK_BEFORE_LOSS>(); },
    [](const OrvGuiIF&, int) { return std::string(); },
    [](Commands& commands, int when) { commands.postSetting(SETTING<Backend::Settings::ASK_BEFORE_LOSS>(when)); }};

constexpr Choice PROGRAM_CHANGE_INPUT{
    "Program changes from:",
    "Input of program changes",
    "MIDI program changes of this input, with bank select, change the program of the bank. They are not played then.",
    150,
    [](const OrvGuiIF& gui) {
        std::vector<ComboBox::Entry> entries{{.text = "None"}, {.text = "All inputs"}};
        for (const MidiPort& port : gui.getMidiInputPorts())
            entries.push_back({.text = QString::fromStdString(port.getDisplayName())});
        return entries;
    },
    [](const OrvGuiIF& gui) {
        return gui.getRegistrySettings().get<Backend::Settings::PROGRAM_CHANGE_INPUT>() - ProgramChangeInput::OFF;
    },
    [](const OrvGuiIF&, int) { return std::string("???"); },
    [](Commands& commands, int entry) {
        commands.postSetting(SETTING<Backend::Settings::PROGRAM_CHANGE_INPUT>(entry + ProgramChangeInput::OFF));
    }};

constexpr Choice PROGRAM_CHANGE_CHANNEL{
    "on channel:",
    "Channel of program changes",
    "Only program changes on this channel change the program.",
    90,
    [](const OrvGuiIF&) {
        std::vector<ComboBox::Entry> entries{{.text = "All"}};
        for (int channel = 1; channel <= 16; ++channel) entries.push_back({.text = QString::number(channel)});
        return entries;
    },
    [](const OrvGuiIF& gui) {
        return gui.getRegistrySettings().get<Backend::Settings::PROGRAM_CHANGE_CHANNEL>() - ProgramChangeInput::ALL;
    },
    [](const OrvGuiIF&, int) { return std::string(); },
    [](Commands& commands, int entry) {
        commands.postSetting(SETTING<Backend::Settings::PROGRAM_CHANGE_CHANNEL>(entry + ProgramChangeInput::ALL));
    }};

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
                                   [](Commands& commands, int value) { commands.postSetMouseSensitivity(value); }};

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
                             [](Commands& commands, int value) { commands.postSetRetroRecordBufferSize(value); }};

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
                                [](Commands& commands, int value) { commands.postSetDisplayHeight(value); }};

constexpr File DEFAULT_BANK{"Default bank:",
                            "Default bank",
                            "Default bank: a start loads it that does not begin where Orvane was closed, and it is "
                            "loaded at once if you change it. Leave it empty for the bank in your banks folder.",
                            "Choose default bank",
                            "Chooses the file of a bank (.bnk).",
                            "Default Bank",
                            "Bank Files (*.bnk)",
                            "There is no bank \"%1\".",
                            [](const Settings& settings) -> const std::string& { return settings.getDefaultBank(); },
                            [](Commands& commands, const std::string& path) { commands.postSetDefaultBank(path); }};

constexpr Text INSTALL_FOLDER{
    "Installed in:",
    "Install folder",
    "Install folder: Orvane's own banks, presets and manual are there. It cannot be changed here; you can copy it.",
    [](const OrvGuiIF&) { return OrvUtils::getOrvProgDir(); },
    nullptr,
    nullptr};

// --- of the host

constexpr Number SYNTHESIZER_VOLUME{
    "Volume:",
    "",
    "%",
    "Volume of the synthesizer",
    "Volume of the built-in synthesizer, 0 to 100 %. It applies to all its channels.",
    "%",
    "",
    Backend::Settings::SYNTHESIZER_VOLUME.lowest,
    Backend::Settings::SYNTHESIZER_VOLUME.highest,
    1,
    &Settings::get<Backend::Settings::SYNTHESIZER_VOLUME>,
    [](Commands& commands, int value) { commands.postSetting(SETTING<Backend::Settings::SYNTHESIZER_VOLUME>(value)); }};

constexpr File SOUND_FONT{
    "Sound font:",
    "Sound font",
    "Sound font of the built-in synthesizer, a file .sf2 or .sf3. Leave it empty for the one that "
    "is installed. Notes that sound end when another one is loaded.",
    "Choose sound font",
    "Chooses the file of a sound font (.sf2, .sf3).",
    "Sound Font",
    "Sound Fonts (*.sf2 *.sf3)",
    "There is no sound font \"%1\".",
    [](const Settings& settings) -> const std::string& { return settings.get<Backend::Settings::SOUND_FONT>(); },
    [](Commands& commands, const std::string& path) {
        commands.postSetting(SETTING<Backend::Settings::SOUND_FONT>(path));
    }};

constexpr Text CLIENT_NAME{
    "JACK client:",
    "JACK client name",
    "JACK client name: how other programs see Orvane, from the next start on. Leave it empty for \"orvane\".",
    [](const OrvGuiIF& gui) { return gui.getRegistrySettings().get<Backend::Settings::CLIENT_NAME>(); },
    [](const std::string& text) {
        const bool isValid = text.size() <= LONGEST_CLIENT_NAME && text.find(':') == std::string::npos;
        return isValid ? std::string() : "The JACK client name has at most 63 bytes and no colon.";
    },
    [](Commands& commands, const std::string& text) {
        commands.postSetting(SETTING<Backend::Settings::CLIENT_NAME>(text));
    }};

constexpr Choice CLOCK_IN{
    "Clock from:",
    "Input of the MIDI clock",
    "The tempo follows the MIDI clock at this input, unless the program names another input.",
    230,
    [](const OrvGuiIF& gui) { return getPortEntries(gui.getMidiInputPorts()); },
    [](const OrvGuiIF& gui) { return gui.getRegistrySettings().get<Backend::Settings::CLOCK_IN>() + 1; },
    [](const OrvGuiIF&, int) { return std::string("???"); },
    [](Commands& commands, int entry) { commands.postSetting(SETTING<Backend::Settings::CLOCK_IN>(entry - 1)); }};

constexpr Choice CLOCK_OUT{
    "Clock to:",
    "Output of the MIDI clock",
    "A MIDI clock is sent to this output: 24 ticks a beat, start, stop and song position.",
    230,
    [](const OrvGuiIF& gui) { return getPortEntries(gui.getMidiOutputPorts()); },
    [](const OrvGuiIF& gui) { return gui.getRegistrySettings().get<Backend::Settings::CLOCK_OUT>() + 1; },
    [](const OrvGuiIF&, int) { return std::string("???"); },
    [](Commands& commands, int entry) { commands.postSetting(SETTING<Backend::Settings::CLOCK_OUT>(entry - 1)); }};
}  // namespace Gui::Setup
