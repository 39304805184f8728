#include "backend/sections/controls/DefaultControls.h"

#include <array>
#include <sstream>

namespace Backend::Controls
{
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using Kind = ControlType::Kind;

namespace
{
struct Row {
    Cell cell;
    Kind kind;
    const char* name;
    std::int32_t value;
    std::int32_t max;
    std::int32_t release;
    std::int32_t size;
    MidiMessage event;
};

constexpr MidiMessage controller(int number) { return MidiMessage(MessageType::controllerChange, number); }

constexpr MidiMessage PITCH_BEND(MessageType::pitchBend);
constexpr MidiMessage PRESSURE(MessageType::channelPressure);
constexpr MidiMessage PROGRAM(MessageType::programChange);

constexpr auto ROWS = std::to_array<Row>({
    {{0, 0}, Kind::vfader, "PB", 8192, 16383, 8192, 2, PITCH_BEND},
    {{0, 1}, Kind::vfader, "MW", 0, 127, -1, 2, controller(1)},
    {{0, 2}, Kind::vfader, "VOL", 100, 127, -1, 2, controller(7)},
    {{0, 3}, Kind::vfader, "SUST", 0, 127, -1, 2, controller(64)},
    {{0, 4}, Kind::vfader, "AFT", 0, 127, -1, 2, PRESSURE},
    {{0, 5}, Kind::edit, "B MSB", 0, 127, -1, 1, controller(0)},
    {{0, 6}, Kind::edit, "B LSB", 0, 127, -1, 1, controller(32)},
    {{0, 7}, Kind::edit, "PROG", 0, 127, -1, 1, PROGRAM},
    {{2, 0}, Kind::edit, "", 8192, 16383, -1, 1, PITCH_BEND},
    {{2, 1}, Kind::edit, "", 0, 127, -1, 1, controller(1)},
    {{2, 2}, Kind::edit, "", 100, 127, -1, 1, controller(7)},
    {{2, 3}, Kind::knob, "PAN", 64, 127, 64, 1, controller(10)},
    {{2, 4}, Kind::edit, "", 0, 127, -1, 1, PRESSURE},
});
}  // namespace

ControlMap defaultControls()
{
    ControlMap map;
    for (const Row& row : ROWS)
        map.put(Control{.cell = row.cell,
                        .name = row.name,
                        .type = {row.kind},
                        .value = row.value,
                        .max = row.max,
                        .release = row.release,
                        .size = row.size,
                        .functions = {{.midiEvent = row.event}}});
    return map;
}

std::string defaultControlsXml(int indent)
{
    std::ostringstream out;
    defaultControls().writeXml(out, indent, {});
    return out.str();
}
}  // namespace Backend::Controls
