#include "gui/window/OrvGuiMessageManager.h"

#include <array>

#include "api/OrvGuiIF.h"
#include "backend/files/Bank.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetList.h"
#include "backend/model/Program.h"
#include "backend/model/WindowMove.h"
#include "backend/values/OnOffToggle.h"

namespace Gui
{
using namespace Backend;
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPorts;
using MidiEngine::OrvMidiMessage;

namespace
{
using Command = GuiCommand<OrvGuiIF>;

template <auto operation, class Value>
constexpr Command payload(unsigned int number)
{
    return payloadCommand<operation, Value, OrvGuiIF>(number);
}
template <auto operation>
constexpr Command onOff(unsigned int number)
{
    return valueCommand<operation, bool, OrvGuiIF>(number);
}
template <auto operation>
constexpr Command number(unsigned int messageNumber)
{
    return valueCommand<operation, int, OrvGuiIF>(messageNumber);
}
template <auto operation>
constexpr Command plain(unsigned int messageNumber)
{
    return plainCommand<operation, OrvGuiIF>(messageNumber);
}

void showScreen(OrvGuiIF& gui, Message& message)
{
    const auto screen = static_cast<Screen>(message.wparam);
    const OnOffToggle on{static_cast<OnOffToggle::State>(message.lparam)};
    if (on.state == OnOffToggle::State::toggle)
        gui.toggleScreen(screen);
    else
        gui.showScreen(screen, on.appliedTo(false));
}

void changeProgram(OrvGuiIF& gui, Message& message)
{
    const auto* program = message.payload.get<Program>();
    if (program == nullptr) return;
    if (message.wparam != 0) gui.handleProgramMissing(*program);
    gui.handleProgramChanged(*program);
}

void changePresets(OrvGuiIF& gui, Message& message)
{
    if (const auto* presets = message.payload.get<PresetList>())
        gui.handlePresetsChanged(message.wparam, *presets, message.lparam != 0);
}

constexpr auto COMMANDS = std::to_array<Command>({
    payload<&OrvGuiIF::handleSettingsChanged, RegistrySettings>(GuiMessage::SETTINGS),
    payload<&OrvGuiIF::handleMidiInputPortsChanged, MidiInputPorts>(GuiMessage::MIDI_INPUT_PORTS),
    payload<&OrvGuiIF::handleMidiOutputPortsChanged, MidiOutputPorts>(GuiMessage::MIDI_OUTPUT_PORTS),
    onOff<&OrvGuiIF::handleDockToBottomEdgeChanged>(GuiMessage::DOCK_TO_BOTTOM_EDGE),
    payload<&OrvGuiIF::handleDefaultBankChanged, std::string>(GuiMessage::DEFAULT_BANK),
    onOff<&OrvGuiIF::handleLargeDisplayFontChanged>(GuiMessage::LARGE_DISPLAY_FONT),
    onOff<&OrvGuiIF::handleAlwaysOnTopChanged>(GuiMessage::ALWAYS_ON_TOP),
    payload<&OrvGuiIF::handleBankChanged, Bank>(GuiMessage::BANK),
    plain<&OrvGuiIF::showSaveDialog>(GuiMessage::SHOW_SAVE_DIALOG),
    plain<&OrvGuiIF::showProgramMenu>(GuiMessage::SHOW_PROGRAM_MENU),
    plain<&OrvGuiIF::showDefaultMidiOutputMenu>(GuiMessage::SHOW_DEFAULT_MIDI_OUTPUT_MENU),
    payload<&OrvGuiIF::moveWindow, WindowMove>(GuiMessage::MOVE_WINDOW),
    {GuiMessage::MIDI_OUTPUT_EVENT,
     [](OrvGuiIF& gui, Message& message) {
         gui.displayMidiOutputEvent(OrvMidiMessage(message.wparam, message.lparam));
     }},
    plain<&OrvGuiIF::handleResetOrv>(GuiMessage::ORV_RESET),
    payload<&OrvGuiIF::handleProgramNameChanged, Program>(GuiMessage::PROGRAM_NAME),
    {GuiMessage::PROGRAM, &changeProgram},
    number<&OrvGuiIF::handleDefaultMidiOutputChanged>(GuiMessage::DEFAULT_MIDI_OUTPUT),
    onOff<&OrvGuiIF::handleUseSkinBorderChanged>(GuiMessage::USE_SKIN_BORDER),
    {GuiMessage::SHOW_SCREEN, &showScreen},
    number<&OrvGuiIF::handleRetroRecordBufferSizeChanged>(GuiMessage::RETRO_RECORD_BUFFER_SIZE),
    onOff<&OrvGuiIF::handleRetroRecordEnabledChanged>(GuiMessage::RETRO_RECORD_ENABLED),
    onOff<&OrvGuiIF::handleMidiThruChanged>(GuiMessage::MIDI_THRU),
    onOff<&OrvGuiIF::handleGlobalKeyboardChanged>(GuiMessage::GLOBAL_KEYBOARD),
    number<&OrvGuiIF::handleMouseSensitivityChanged>(GuiMessage::MOUSE_SENSITIVITY),
    onOff<&OrvGuiIF::handleClickZoneChannelTransposeChanged>(GuiMessage::CLICK_ZONE_CHANNEL_TRANSPOSE),
    {GuiMessage::PRESETS, &changePresets},
    onOff<&OrvGuiIF::handleSequencePresetsChanged>(GuiMessage::SEQUENCE_PRESETS),
});
}  // namespace

OrvGuiMessageManager::OrvGuiMessageManager(OrvGuiIF& gui) : TableMessageManager(COMMANDS, gui) {}
}  // namespace Gui
