#pragma once

namespace Backend::GuiMessage
{
/// What the backend tells the window, each with owned copies where the two parameters do not hold it.
enum Number : unsigned int {
    MIDI_INPUT_PORTS = 33221,             ///< payload: MidiInputPorts
    MIDI_OUTPUT_PORTS = 33223,            ///< payload: MidiOutputPorts
    DOCK_TO_BOTTOM_EDGE = 33229,          ///< first parameter, as of all settings here: 0 or 1
    LARGE_DISPLAY_FONT = 33233,           ///< 0 or 1
    ALWAYS_ON_TOP = 33236,                ///< 0 or 1
    MIDI_OUTPUT_EVENT = 33248,            ///< parameters: an event on its way to the player
    ORV_RESET = 33253,                    ///< a hard reset was done
    PROGRAM = 33257,                      ///< payload: Program
    DEFAULT_MIDI_OUTPUT = 33258,          ///< first parameter: the output, -1 for none
    USE_SKIN_BORDER = 33260,              ///< 0 or 1
    MIDI_THRU = 33265,                    ///< 0 or 1
    GLOBAL_KEYBOARD = 33266,              ///< 0 or 1
    MOUSE_SENSITIVITY = 33268,            ///< the divisor
    CLICK_ZONE_CHANNEL_TRANSPOSE = 33272  ///< 0 or 1
};
}  // namespace Backend::GuiMessage
