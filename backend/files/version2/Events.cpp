#include "backend/files/version2/Events.h"

#include <array>
#include <sstream>

#include "backend/bindings/functions/Functions.h"

namespace Backend::Version2
{
using namespace FunctionManagement::Functions;
using FunctionManagement::MidiParameters;
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;

namespace
{
constexpr int NUMBERS = 128;

/// Sets the value of the function, in the byte that its event has for it.
template <class Function>
std::string write(const MidiMessage& event, int value, MidiParameters parameters)
{
    constexpr bool HAS_NUMBER = Function::shape.d2.exists();
    if (event.isNote() || event.isControllerChange())
        parameters.setD1(event.getD1(), Function::shape);
    else
        parameters.setD1(HAS_NUMBER ? Function::shape.d1.picked : value, Function::shape);
    if (HAS_NUMBER) parameters.setD2(value, Function::shape);
    std::ostringstream out;
    startElement(out, 0, Function::info.typeName);
    parameters.writeXml(out, Function::shape);
    endElement(out);
    return out.str();
}

struct Kind {
    MessageType status;
    std::string_view translation;
    std::string (*write)(const MidiMessage& event, int value, MidiParameters parameters);
};
constexpr auto KINDS =
    std::to_array<Kind>({{MessageType::noteOff, "MidiNoteOff", write<MidiNoteOff>},
                         {MessageType::noteOn, "MidiNoteOn", write<MidiNoteOn>},
                         {MessageType::keyPressure, "MidiKeyPressure", write<MidiKeyPressure>},
                         {MessageType::controllerChange, "MidiControllerChange", write<MidiControllerChange>},
                         {MessageType::programChange, "MidiProgramChange", write<MidiProgramChange>},
                         {MessageType::channelPressure, "MidiChannelPressure", write<MidiChannelPressure>},
                         {MessageType::pitchBend, "MidiPitchBend", write<MidiPitchBend>}});

/// For a channel message; each has a row.
const Kind& kindOf(const MidiMessage& event)
{
    std::size_t row = 0;
    while (row + 1 < KINDS.size() && KINDS[row].status != event.getStatus()) ++row;
    return KINDS[row];
}
}  // namespace

int highestValue(const MidiMessage& event) { return event.isPitchBend() ? NUMBERS * NUMBERS - 1 : NUMBERS - 1; }

std::string functionText(const MidiMessage& event, int value, MidiParameters place)
{
    return kindOf(event).write(event, value, place);
}

std::string_view translationType(const MidiMessage& event) { return kindOf(event).translation; }

std::string indented(std::string_view text, int tabs)
{
    std::string result;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n') + 1);
        result.append(static_cast<std::size_t>(tabs), '\t').append(line);
        text.remove_prefix(line.size());
    }
    return result;
}
}  // namespace Backend::Version2
