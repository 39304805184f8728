#include "gui/window/OrvGuiMessageManager.h"

#include <array>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/PresetList.h"
#include "backend/model/Program.h"
#include "backend/model/WindowMove.h"
#include "backend/values/OnOffToggle.h"

namespace Gui
{
using namespace Backend;

namespace
{
void showScreen(OrvGuiIF& gui, Screen screen, OnOffToggle::State state)
{
    if (state == OnOffToggle::State::toggle)
        gui.toggleScreen(screen);
    else
        gui.showScreen(screen, state == OnOffToggle::State::on);
}

void changeProgram(OrvGuiIF& gui, const Program& program, bool isMissing)
{
    if (isMissing) gui.handleProgramMissing(program);
    gui.handleProgramChanged(program);
}

void changePresets(OrvGuiIF& gui, std::uint32_t section, bool done, const PresetList& presets)
{
    gui.handlePresetsChanged(section, presets, done);
}

void changeSectionPreset(OrvGuiIF& gui, std::uint32_t section, bool isEdited, const std::string& name)
{
    gui.handleSectionPreset(section, isEdited, name);
}

constexpr auto COMMANDS = std::to_array<Command<OrvGuiIF>>({
    on<GuiMessage::SETTINGS, &OrvGuiIF::handleSettingsChanged>(),
    on<GuiMessage::MIDI_INPUT_PORTS, &OrvGuiIF::handleMidiInputPortsChanged>(),
    on<GuiMessage::MIDI_OUTPUT_PORTS, &OrvGuiIF::handleMidiOutputPortsChanged>(),
    on<SETTING<Settings::DOCK_TO_BOTTOM_EDGE>, &OrvGuiIF::handleDockToBottomEdgeChanged>(),
    on<SETTING<Settings::DEFAULT_BANK>, &OrvGuiIF::handleDefaultBankChanged>(),
    on<SETTING<Settings::LARGE_DISPLAY_FONT>, &OrvGuiIF::handleLargeDisplayFontChanged>(),
    on<SETTING<Settings::ALWAYS_ON_TOP>, &OrvGuiIF::handleAlwaysOnTopChanged>(),
    on<GuiMessage::BANK, &OrvGuiIF::handleBankChanged>(),
    on<GuiMessage::SHOW_SAVE_DIALOG, &OrvGuiIF::showSaveDialog>(),
    on<GuiMessage::SHOW_PROGRAM_MENU, &OrvGuiIF::showProgramMenu>(),
    on<GuiMessage::SHOW_DEFAULT_MIDI_OUTPUT_MENU, &OrvGuiIF::showDefaultMidiOutputMenu>(),
    on<GuiMessage::MOVE_WINDOW, &OrvGuiIF::moveWindow>(),
    on<GuiMessage::MIDI_OUTPUT_EVENT, &OrvGuiIF::displayMidiOutputEvent>(),
    on<GuiMessage::ORV_RESET, &OrvGuiIF::handleResetOrv>(),
    on<GuiMessage::PROGRAM_NAME, &OrvGuiIF::handleProgramNameChanged>(),
    on<GuiMessage::PROGRAM, &changeProgram>(),
    on<GuiMessage::DEFAULT_MIDI_OUTPUT, &OrvGuiIF::handleDefaultMidiOutputChanged>(),
    on<SETTING<Settings::USE_SKIN_BORDER>, &OrvGuiIF::handleUseSkinBorderChanged>(),
    on<GuiMessage::SHOW_SCREEN, &showScreen>(),
    on<SETTING<Settings::RETRO_RECORD_BUFFER_SIZE>, &OrvGuiIF::handleRetroRecordBufferSizeChanged>(),
    on<SETTING<Settings::RETRO_RECORD_ENABLED>, &OrvGuiIF::handleRetroRecordEnabledChanged>(),
    on<SETTING<Settings::MIDI_THRU>, &OrvGuiIF::handleMidiThruChanged>(),
    on<SETTING<Settings::GLOBAL_KEYBOARD>, &OrvGuiIF::handleGlobalKeyboardChanged>(),
    on<SETTING<Settings::MOUSE_SENSITIVITY>, &OrvGuiIF::handleMouseSensitivityChanged>(),
    on<SETTING<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>, &OrvGuiIF::handleClickZoneChannelTransposeChanged>(),
    on<GuiMessage::PRESETS, &changePresets>(),
    on<GuiMessage::SEQUENCE_PRESETS, &OrvGuiIF::handleSequencePresetsChanged>(),
    on<GuiMessage::EDIT_DONE, &OrvGuiIF::handleEditDone>(),
    on<GuiMessage::PROGRAM_EDITED, &OrvGuiIF::handleProgramEdited>(),
    on<GuiMessage::LEARNED, &OrvGuiIF::handleLearned>(),
    on<GuiMessage::RECEIVED_EVENTS, &OrvGuiIF::handleReceivedEvents>(),
    on<GuiMessage::BANK_EDIT_DONE, &OrvGuiIF::handleBankEditDone>(),
    on<GuiMessage::SECTION_PRESET, &changeSectionPreset>(),
    on<GuiMessage::SEQUENCE_STEPS, &OrvGuiIF::handleSequenceSteps>(),
    on<GuiMessage::SET_LIST, &OrvGuiIF::handleSetListChanged>(),
    on<GuiMessage::NOTICE, &OrvGuiIF::handleNotice>(),
    on<GuiMessage::RECOVERY, &OrvGuiIF::handleRecovery>(),
});
}  // namespace

OrvGuiMessageManager::OrvGuiMessageManager(OrvGuiIF& gui) : TableMessageManager(COMMANDS, gui) {}
}  // namespace Gui
