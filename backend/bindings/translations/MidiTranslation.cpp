#include "backend/bindings/translations/MidiTranslation.h"

#include <algorithm>

#include "api/OrvMessageManager.h"

namespace Backend::MidiInput::TranslationManagement
{
using FunctionManagement::FunctionNoteSpan;
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using MidiEngine::Note;

namespace
{
constexpr int HIGHEST_DATA = 127;

int dataFor(const MidiTranslationValue& value, const MidiMessage& message)
{
    return std::clamp(value.getValue(message).value, 0, HIGHEST_DATA);
}
}  // namespace

void MidiTranslationParameters::applyTo(MidiEngine::OrvMidiMessage& event, MessageType status) const
{
    const MidiMessage incoming = event.getMidiMessage();
    if (status != MessageType::none) event.setStatus(status);
    if (output != MidiEngine::OrvMidiMessage::DEFAULT_OUTPUT) event.setOutput(output);
    channel.applyTo(event);
    event.setZone(zone);
    event.setD1(dataFor(d1, incoming));
    event.setD2(dataFor(d2, incoming));
}

void postPlayMidi(OrvIF& orv, const MidiEngine::OrvMidiMessage& event)
{
    orv.getOrvMessageManager().postPlayMidi(event);
}

/// A higher byte of the event never gives a lower data value, so the results of the lowest and the highest event are
/// the ends.
FunctionNoteSpan MidiTranslationParameters::getNoteSpan(const MidiEvent& event, MessageType status) const
{
    const MessageType played = status != MessageType::none ? status : event.message.getStatus();
    if (zone < 0 || played != MessageType::noteOn) return {};
    const auto noteFor = [&](int openData) {
        MidiMessage message = event.message;
        if (!event.hasNumber()) message.setD1(openData);
        message.setD2(openData);
        return Note(dataFor(d1, message));
    };
    return {.zone = zone, .lowNote = noteFor(0), .highNote = noteFor(HIGHEST_DATA)};
}
}  // namespace Backend::MidiInput::TranslationManagement
