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
     "Move the main window: a number is a position in pixels from the left or the top, +/- a number moves by so many "
     "pixels, blank leaves that axis unchanged."},
    {HelpId::changeMidiThru,
     "Switch MIDI thru on or off: while it is on, events received at the MIDI inputs are played."},
    {HelpId::changeGlobalKeyboard,
     "Switch the global keyboard on or off: while it is on, the keys play in any window."},
    {HelpId::midiNoteOn, "Play a note on (0x9c): a note with a velocity of 1 to 127. Velocity 0 ends the note."},
    {HelpId::midiNoteOff, "Play a note off (0x8c): ends a note, with a release velocity of 0 to 127."},
    {HelpId::midiKeyPressure, "Play a key pressure event (0xac): the pressure of one note, 0 to 127."},
    {HelpId::midiControllerChange, "Play a controller change (0xbc): a controller 0 to 127 and its value, 0 to 127."},
    {HelpId::midiProgramChange, "Play a program change (0xcc): the sound of the instrument, 0 to 127."},
    {HelpId::midiChannelPressure, "Play a channel pressure event (0xdc): the pressure of a whole channel, 0 to 127."},
    {HelpId::midiPitchBend, "Play a pitch bend (0xec), 0 to 16383; 8192 is the centre."},
    {HelpId::midiSongPosition, "Play a song position (0xf2): 0 to 16383 sixteenth notes from the start of the song."},
    {HelpId::midiSongSelect, "Play a song select (0xf3): song 0 to 127 of a sequencer."},
    {HelpId::midiBusSelect, "Play a bus select (0xf5): bus 0 to 127 of a MIDI interface."},
    {HelpId::midiTuneRequest, "Play a tune request (0xf6): analogue synthesizers tune themselves."},
    {HelpId::midiEndOfSysEx, "Play an end of system exclusive (0xf7)."},
    {HelpId::midiTimingTick, "Play a timing tick (0xf8), of which there are 24 in a quarter note."},
    {HelpId::midiStartSong, "Play a start song (0xfa): sequencers start at the beginning."},
    {HelpId::midiContinueSong, "Play a continue song (0xfb): sequencers go on from their song position."},
    {HelpId::midiStopSong, "Play a stop song (0xfc): sequencers stop."},
    {HelpId::midiActiveSensing, "Play an active sensing (0xfe), which keeps a connection alive."},
    {HelpId::midiSystemReset, "Play a system reset (0xff): instruments return to their state at power-on."},
    {HelpId::loadComputerInputPreset, "Load a computer input preset: what the keys of the computer do."},
    {HelpId::loadMidiInputPreset, "Load a MIDI input preset: what received MIDI events are translated to."},
    {HelpId::loadJoystickInputPreset, "Load a joystick input preset: what the axes and buttons of the joysticks do."},
    {HelpId::loadControlPreset, "Load a control preset: the faders, knobs and switches that send MIDI."},
    {HelpId::loadLayerPreset, "Load a layer preset: the layers that notes go through."},
    {HelpId::loadOscillatorPreset, "Load an oscillator preset."},
    {HelpId::selectControl, "Select a control, for the functions that change the selected control."},
    {HelpId::setWidgetFocus, "Put the cursor into a control of the window, to type its value."},
    {HelpId::changeControl,
     "Change the value of a control and send it. A number sets it, +/- a number changes it, within the limits of the "
     "control."},
    {HelpId::sendControlData, "Send the value of a control, or of all controls, without changing it."},
    {HelpId::changeProgram, "Change to another program of the bank: the next, the previous, or one by its number."},
    {HelpId::showProgramMenu, "Open the menu of programs."},
    {HelpId::tapTempo, "Tap the tempo: it follows the beats that are tapped."},
    {HelpId::resetOrv, "End every note and reset the default MIDI output."},
    {HelpId::showSaveDialog, "Open the save dialog for the current program."},
    {HelpId::selectZone, "Select a zone, for the functions that change the selected zone."},
    {HelpId::changeZoneTranspose, "Transpose a zone by semitones. A number sets it, +/- a number changes it."},
    {HelpId::changeDefaultMidiOutput,
     "Change the default MIDI output: the next, the previous, or one by its number. Outputs that are disabled are "
     "skipped."},
    {HelpId::showDefaultMidiOutputMenu, "Open the menu of MIDI outputs."},
    {HelpId::changeTempo, "Change the tempo, 20 to 250 beats per minute. A number sets it, +/- a number changes it."},
    {HelpId::dataSelectLayer, "Select a layer, for the functions that change the selected layer."},
    {HelpId::editSelectLayer, "Open the settings of a layer."},
    {HelpId::changeLayerTranspose,
     "Transpose a layer by semitones, or by steps of its scale. A number sets it, +/- a number changes it."},
    {HelpId::changeLayerVelocity,
     "Change what a layer adds to the velocity of its notes, or the fixed velocity that it gives them. A number sets "
     "it, +/- a number changes it."},
    {HelpId::changeLayerMute, "Mute a layer, or end its mute."},
    {HelpId::changeLayerMono, "Make a layer play one note at a time, or any number of notes."},
    {HelpId::changeLayerSolo, "Play a layer alone, or all layers."},
    {HelpId::changeLayerNoteToggle,
     "Choose when the notes of a layer end: when the key is released, or when it is pressed again."},
    {HelpId::dataSelectOsc, "Select an oscillator, for the functions that change the selected oscillator."},
    {HelpId::changeOscPlaying, "Start or stop an oscillator."},
    {HelpId::changeOscSpeed,
     "Change the speed of an oscillator. A number is the length of a cycle in pulses, +/- a number makes it faster or "
     "slower by so many steps."},
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

/// The names of the screens, inserted into the sentences below.
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

/// In general, and for show, hide and toggle.
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
