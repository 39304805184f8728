#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "backend/values/Key.h"

namespace Host
{
/// A MIDI message that arrives at an input port.
struct MidiCommand {
    int input;             ///< zero-based, 0 to 127; the backend drops the event if it does not exist
    std::uint8_t status;   ///< 80 to FF, below F0 without its channel
    std::uint8_t channel;  ///< 0 to 15; 0 for a status of F0 or above
    std::uint8_t d1;       ///< 0 to 255
    std::uint8_t d2;       ///< 0 to 255

    bool operator==(const MidiCommand&) const = default;
};

/// An event that is posted to the backend, past the input ports.
struct PlayCommand {
    int output;           ///< zero-based, -1 for none, at most 127
    int channel;          ///< 0 to 15, -1 for none
    int zone;             ///< 0 to 127, -1 for none
    std::uint8_t status;  ///< 128 to 255, a channel message without its channel
    std::uint8_t d1;      ///< 0 to 255
    std::uint8_t d2;      ///< 0 to 255

    bool operator==(const PlayCommand&) const = default;
};

enum class PortDirection { input, output };

/// The user enables or disables a port.
struct EnableCommand {
    PortDirection direction;
    int port;  ///< zero-based, 0 to 127
    bool on;

    bool operator==(const EnableCommand&) const = default;
};

/// A program (.prg) or bank (.bnk) is loaded. The file could be read when the performance was parsed.
struct LoadCommand {
    std::string file;

    bool operator==(const LoadCommand&) const = default;
};

enum class PressAction { down, repeat, up };

/// A key of the computer as a window reports it.
struct KeyCommand {
    PressAction action;
    Key key;  ///< a key that has a name

    bool operator==(const KeyCommand&) const = default;
};

/// A function is executed.
struct FunctionCommand {
    std::string xml;  ///< its element

    bool operator==(const FunctionCommand&) const = default;
};

/// The retrospective record is saved, each output as "<stem>_<its name>.mid".
struct RecordCommand {
    std::string stem;  ///< in a folder that existed when the performance was parsed

    bool operator==(const RecordCommand&) const = default;
};

/// The user moves a control of the screen. Nothing happens if that cell has none.
struct ControlCommand {
    int row;     ///< 0 to 32767; the grid ends at 15
    int column;  ///< 0 to 32767; the grid ends at 15
    std::int32_t value;

    bool operator==(const ControlCommand&) const = default;
};

/// A joystick reports that an axis has moved.
struct AxisCommand {
    int joystick;  ///< 0 or 1
    int axis;      ///< 0 to 5: X, Y, Z, U, V, R
    int value;     ///< 0 to 65535

    bool operator==(const AxisCommand&) const = default;
};

/// A joystick reports a button.
struct ButtonCommand {
    int joystick;  ///< 0 or 1
    int button;    ///< 0 to 35, from 32 the directions of the hat: forward, back, left, right
    PressAction action;

    bool operator==(const ButtonCommand&) const = default;
};

/// A command of a performance. A new one needs a struct here, a row in the table of parseCommand, and a `postKind`.
using Command = std::variant<MidiCommand, PlayCommand, EnableCommand, LoadCommand, KeyCommand, FunctionCommand,
                             ControlCommand, AxisCommand, ButtonCommand, RecordCommand>;

struct TimedCommand {
    std::int32_t time;  ///< pulses from the start, 480 per quarter note, 0 to LAST_PULSE
    Command command;

    bool operator==(const TimedCommand&) const = default;
};
}  // namespace Host
