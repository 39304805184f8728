#include "backend/bindings/functions/HelpTexts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Backend
{
namespace
{
struct HelpText {
    int helpId;
    std::string_view text;
};

constexpr auto TEXTS = std::to_array<HelpText>({
    {HelpId::noFunction, "No function."},
    {HelpId::moveWindow,
     "Move the main window. Blank leaves a position, +/- a number moves by it, a number goes there."},
    {HelpId::changeMidiThru, "Switch MIDI thru on or off: whether what comes in on MIDI inputs goes out again."},
    {HelpId::changeGlobalKeyboard,
     "Switch the global keyboard on or off: whether keys play while another program has the focus."},
    {HelpId::midiNoteOn, "Play a note on (0x9c)."},
    {HelpId::midiNoteOff, "Play a note off (0x8c)."},
    {HelpId::midiKeyPressure, "Play a key pressure event (0xac)."},
    {HelpId::midiControllerChange, "Play a controller change (0xbc)."},
    {HelpId::midiProgramChange, "Play a program change (0xcc)."},
    {HelpId::midiChannelPressure, "Play a channel pressure event (0xdc)."},
    {HelpId::midiPitchBend, "Play a pitch bend (0xec). 8192 is the centre."},
    {HelpId::midiSongPosition, "Play a song position (0xf2), counted in sixteenth notes."},
    {HelpId::midiSongSelect, "Play a song select (0xf3)."},
    {HelpId::midiBusSelect, "Play a bus select (0xf5)."},
    {HelpId::midiTuneRequest, "Play a tune request (0xf6)."},
    {HelpId::midiEndOfSysEx, "Play an end of system exclusive (0xf7)."},
    {HelpId::midiTimingTick, "Play a timing tick (0xf8)."},
    {HelpId::midiStartSong, "Play a start song (0xfa)."},
    {HelpId::midiContinueSong, "Play a continue song (0xfb)."},
    {HelpId::midiStopSong, "Play a stop song (0xfc)."},
    {HelpId::midiActiveSensing, "Play an active sensing (0xfe)."},
    {HelpId::midiSystemReset, "Play a system reset (0xff)."},
    {HelpId::loadComputerInputPreset, "Load a computer input preset."},
    {HelpId::loadMidiInputPreset, "Load a midi input preset."},
    {HelpId::loadJoystickInputPreset, "Load a joystick input preset."},
    {HelpId::loadControlPreset, "Load a control preset."},
    {HelpId::loadLayerPreset, "Load a layer preset."},
    {HelpId::loadOscillatorPreset, "Load an oscillator preset."},
    {HelpId::selectControl, "Select a control."},
    {HelpId::setWidgetFocus, "Put the cursor into a control."},
    {HelpId::changeControl, "Change the value of a control."},
    {HelpId::sendControlData, "Send the value of a control, or of all controls."},
    {HelpId::changeProgram, "Change to another program of the bank."},
    {HelpId::showProgramMenu, "Open the menu of programs."},
    {HelpId::resetOrv, "End every note and reset the default MIDI output."},
    {HelpId::showSaveDialog, "Open the save dialog."},
    {HelpId::selectZone, "Select a zone."},
    {HelpId::changeZoneTranspose, "Transpose a zone."},
    {HelpId::changeDefaultMidiOutput, "Make another output the default one."},
    {HelpId::showDefaultMidiOutputMenu, "Open the menu of outputs."},
    {HelpId::changeTempo, "Change the tempo."},
    {HelpId::dataSelectLayer, "Select a layer for the functions that change the selected one."},
    {HelpId::editSelectLayer, "Open the settings of a layer."},
    {HelpId::changeLayerTranspose, "Transpose a layer."},
    {HelpId::changeLayerVelocity, "Change the velocity of a layer."},
    {HelpId::changeLayerMute, "Mute a layer or let it sound."},
    {HelpId::changeLayerMono, "Make a layer play one note at a time, or any number."},
    {HelpId::changeLayerSolo, "Let only this layer sound, or all."},
    {HelpId::changeLayerNoteToggle,
     "Choose how a layer holds notes: while the key is down, or until it is pressed again."},
    {HelpId::dataSelectOsc, "Select an oscillator for the functions that change the selected one."},
    {HelpId::changeOscPlaying, "Start or stop an oscillator."},
    {HelpId::changeOscSpeed, "Change the speed of an oscillator."},
    {HelpId::translateToNothing, "Do nothing."},
    {HelpId::translateUnchanged, "Do not change midi event type."},
    {HelpId::translateToNoteOn, "Change midi event type to note on (0x9c)."},
    {HelpId::translateToNoteOff, "Change midi event type to note off (0x8c)."},
    {HelpId::translateToKeyPressure, "Change midi event type to key pressure (0xac)."},
    {HelpId::translateToControllerChange, "Change midi event type to controller change (0xbc)."},
    {HelpId::translateToProgramChange, "Change midi event type to program change (0xcc)."},
    {HelpId::translateToChannelPressure, "Change midi event type to channel pressure (0xdc)."},
    {HelpId::translateToPitchBend, "Change midi event type to pitch bend (0xec)."},
    {HelpId::translateToSongPosition, "Change midi event type to song position (0xf2)."},
    {HelpId::translateToSongSelect, "Change midi event type to song select (0xf3)."},
    {HelpId::translateToBusSelect, "Change midi event type to bus select (0xf5)."},
    {HelpId::translateToTuneRequest, "Change midi event type to tune request (0xf6)."},
    {HelpId::translateToTimingTick, "Change midi event type to timing tick (0xf8)."},
    {HelpId::translateToStartSong, "Change midi event type to start song (0xfa)."},
    {HelpId::translateToContinueSong, "Change midi event type to continue song (0xfb)."},
    {HelpId::translateToStopSong, "Change midi event type to stop song (0xfc)."},
    {HelpId::translateToActiveSensing, "Change midi event type to active sensing (0xfe)."},
    {HelpId::translateToSystemReset, "Change midi event type to system reset (0xff)."},
});

/// A screen by what follows "the" in its four sentences.
constexpr auto SCREENS = std::to_array<HelpText>({
    {HelpId::showSystem, "main screen"},
    {HelpId::showHelp, "help"},
    {HelpId::showDisplay, "display"},
    {HelpId::showOscillator, "oscillators"},
    {HelpId::showJoystick, "joystick input"},
    {HelpId::showMidiInput, "midi input"},
    {HelpId::showComputerInput, "computer input"},
    {HelpId::showControl, "controls"},
    {HelpId::showOutput, "output"},
    {HelpId::showCc, "CC screen"},
    {HelpId::showZone, "zones"},
    {HelpId::showLayer, "layers"},
});

/// In general, when shown, hidden and toggled.
constexpr std::array<std::string_view, 4> SCREEN_VERBS{"Show or hide the ", "Show the ", "Hide the ",
                                                       "Show the hidden or hide the shown "};

std::string screenText(int helpId)
{
    for (const auto& [first, screen] : SCREENS)
        if (helpId >= first && helpId < first + static_cast<int>(SCREEN_VERBS.size()))
            return std::string(SCREEN_VERBS[static_cast<std::size_t>(helpId - first)]) + std::string(screen) + ".";
    return {};
}
}  // namespace

std::string helpText(int helpId)
{
    const auto* row = std::ranges::find(TEXTS, helpId, &HelpText::helpId);
    return row == TEXTS.end() ? screenText(helpId) : std::string(row->text);
}
}  // namespace Backend
