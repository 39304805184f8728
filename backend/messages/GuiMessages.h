#pragma once

namespace Backend::GuiMessage
{
/// What the backend tells the window, each with owned copies where the two parameters do not hold it.
enum Number : unsigned int {
    RETRO_RECORD_SAVED = 32880,             ///< payload: RetroRecord::SaveReport
    RETRO_RECORD_FILL = 32881,              ///< first parameter: 0 to 100 percent
    SETTINGS = 33219,                       ///< payload: RegistrySettings, all of them
    MIDI_INPUT_PORTS = 33221,               ///< payload: MidiInputPorts
    MIDI_OUTPUT_PORTS = 33223,              ///< payload: MidiOutputPorts
    DOCK_TO_BOTTOM_EDGE = 33229,            ///< first parameter, as of all settings here: 0 or 1
    DEFAULT_BANK = 33230,                   ///< payload: string, its path
    LARGE_DISPLAY_FONT = 33233,             ///< 0 or 1
    ALWAYS_ON_TOP = 33236,                  ///< 0 or 1
    BANK = 33240,                           ///< payload: Bank
    OPERATION_DONE = 33241,                 ///< to a progress dialog; first parameter: 1, or 0 if nothing was written
    SHOW_SAVE_DIALOG = 33242,               ///< nothing
    SHOW_PROGRAM_MENU = 33243,              ///< nothing
    SHOW_DEFAULT_MIDI_OUTPUT_MENU = 33244,  ///< nothing
    MOVE_WINDOW = 33245,                    ///< payload: WindowMove
    MIDI_OUTPUT_EVENT = 33248,              ///< parameters: an event on its way to the player
    ORV_RESET = 33253,                      ///< a hard reset was done
    PROGRAM_NAME = 33255,                   ///< payload: Program
    PROGRAM = 33257,                        ///< payload: Program; first parameter: 1 if the file had no such program
    DEFAULT_MIDI_OUTPUT = 33258,            ///< first parameter: the output, -1 for none
    USE_SKIN_BORDER = 33260,                ///< 0 or 1
    SHOW_SCREEN = 33261,                    ///< parameters: the Screen, the state of an OnOffToggle
    RETRO_RECORD_BUFFER_SIZE = 33262,       ///< in bytes
    RETRO_RECORD_ENABLED = 33263,           ///< 0 or 1
    MIDI_THRU = 33265,                      ///< 0 or 1
    GLOBAL_KEYBOARD = 33266,                ///< 0 or 1
    MOUSE_SENSITIVITY = 33268,              ///< the divisor
    CLICK_ZONE_CHANNEL_TRANSPOSE = 33272,   ///< 0 or 1
    PRESETS = 33275,  ///< parameters: the place in PresetSections::ALL, 0 if its folder did not take a change, or 1;
                      ///< payload: PresetList

    KEY_CONFIGURATIONS = 33469,  ///< payload: vector of KeyConfiguration, those that were replaced
    COMPUTER_INPUT = 33470,      ///< first parameter: whether modifiers count on key up; payload: KeyConfigurationMap
    COMPUTER_INPUT_CHANGED = 33471,  ///< what the keys do has changed; payload: string, the preset they came from
    COMPUTER_INPUT_PRESET = 33472,   ///< nothing; a preset was loaded

    MIDI_EVENT_CONFIGURATIONS = 33719,  ///< payload: vector of MidiEventConfiguration, those that changed
    MIDI_INPUT = 33720,                 ///< payload: MidiEventConfigurationMap

    CONTROLS = 33969,          ///< payload: ControlMap
    CONTROL_VALUE = 33975,     ///< parameters: the packed cell, the value
    CONTROL_SELECTED = 33976,  ///< parameters: the packed cell, 0 or 1
    SET_WIDGET_FOCUS = 33978,  ///< payload: SelectControlType

    LAYERS = 34719,             ///< payload: LayerList
    LAYER_SELECTED = 34720,     ///< parameters, as of all layer messages here: the id, then 0 or 1
    LAYER_TRANSPOSE = 34721,    ///< the number
    LAYER_VELOCITY = 34722,     ///< the number
    LAYER_MUTE = 34723,         ///< 0 or 1
    LAYER_MONO = 34724,         ///< 0 or 1
    LAYER_SOLO = 34725,         ///< 0 or 1
    LAYER_NOTE_TOGGLE = 34726,  ///< the mode
    LAYER_EDIT = 34727,         ///< payload: SelectType; opens the settings of a layer

    ZONE_TRANSPOSE = 34969,  ///< parameters: the number, the transposition
    ZONES = 34970,           ///< payload: ZoneMap
    ZONE_SELECTED = 34971,   ///< parameters: the number, 0 or 1

    JOYSTICK_BUTTONS = 35219,      ///< payload: vector of JoystickButtonConfiguration, those that were replaced
    JOYSTICK_AXES = 35222,         ///< payload: vector of AxisConfiguration, likewise
    JOYSTICK_ENABLED = 35223,      ///< parameters: the joystick, 0 or 1
    JOYSTICK_BUTTON_DOWN = 35224,  ///< first parameter: the joystick in the low byte, the button in the next
    JOYSTICK_BUTTON_UP = 35225,    ///< the same
    JOYSTICK_AXIS = 35226,         ///< joystick, axis and, from bit 16, the value; `min` and, from bit 16, `max`

    OSCILLATORS = 35469,     ///< payload: OscList
    OSC_SELECTED = 35470,    ///< parameters, as of all oscillator messages here: the id, then 0 or 1
    OSC_PLAYING = 35471,     ///< 0 or 1
    OSC_SPEED = 35472,       ///< pulses per cycle
    OSC_SPEED_MODE = 35473,  ///< the kind of a TimeIntervalType
    OSC_VALUE = 35475        ///< the running value
};
}  // namespace Backend::GuiMessage
