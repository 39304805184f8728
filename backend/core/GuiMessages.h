#pragma once

namespace Backend::GuiMessage
{
/// What the backend tells the window, each with owned copies where the two parameters do not hold it.
enum Number : unsigned int {
    MIDI_INPUT_PORTS = 33221,     ///< payload: MidiInputPorts
    MIDI_OUTPUT_PORTS = 33223,    ///< payload: MidiOutputPorts
    MIDI_OUTPUT_EVENT = 33248,    ///< parameters: an event on its way to the player
    ORV_RESET = 33253,            ///< a hard reset was done
    PROGRAM = 33257,              ///< payload: Program
    DEFAULT_MIDI_OUTPUT = 33258,  ///< first parameter: the output, -1 for none
    MIDI_THRU = 33265             ///< first parameter: 0 or 1
};
}  // namespace Backend::GuiMessage
