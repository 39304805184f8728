#pragma once

#include <cstdint>

#include "backend/bindings/functions/HelpId.h"
#include "backend/bindings/translations/TranslationFamilies.h"
#include "backend/model/MidiEvent.h"

namespace Backend::MidiInput::TranslationManagement
{
/// The parameters of a MIDI translation: how the incoming event is changed.
struct MidiTranslationParameters {
    std::int8_t zone = -1;    ///< replaces the zone of the event; -1 for none
    std::int8_t output = -1;  ///< -1 for the output of the event
    ChannelTranslation channel{};
    MidiTranslationValue d1{.kind = MidiTranslationValue::Kind::useD1};
    MidiTranslationValue d2{.kind = MidiTranslationValue::Kind::useD2};

    static auto attributes(auto&& use)
    {
        using P = MidiTranslationParameters;
        return use(Attribute{"zone", &P::zone}, Attribute{"output", &P::output}, Attribute{"channel", &P::channel},
                   Attribute{"D1", &P::d1}, Attribute{"D2", &P::d2});
    }

    /// Changes an incoming event into the result. Both data bytes are computed from the incoming event, so they can be
    /// exchanged, and limited to 0 to 127. With `status` none the event keeps its own.
    void applyTo(MidiEngine::OrvMidiMessage& event, MidiEngine::MessageType status) const;

    /// The notes that the result can have for `event`, if it is a note-on in a zone. A part that `event` does not
    /// determine can have any value.
    FunctionManagement::FunctionNoteSpan getNoteSpan(const MidiEvent& event, MidiEngine::MessageType status) const;

    bool operator==(const MidiTranslationParameters&) const = default;
};

/// Posts an event to the backend's own queue.
void postPlayMidi(OrvIF& orv, const MidiEngine::OrvMidiMessage& event);

/// Plays the event with other data and, unless `Derived::status` is none, another status.
template <class Derived>
class MidiTranslation : public TranslationOf<Derived, MidiSettingsType>
{
public:
    std::int8_t getZone() const override { return parameters.zone; }
    void setZone(int number) override { parameters.zone = static_cast<std::int8_t>(number); }
    std::int8_t getOutput() const override { return parameters.output; }
    void setOutput(int port) override { parameters.output = static_cast<std::int8_t>(port); }
    ChannelTranslation getChannel() const override { return parameters.channel; }
    void setChannel(ChannelTranslation channel) override { parameters.channel = channel; }
    MidiTranslationValue getD1() const override { return parameters.d1; }
    void setD1(MidiTranslationValue value) override { parameters.d1 = value; }
    MidiTranslationValue getD2() const override { return parameters.d2; }
    void setD2(MidiTranslationValue value) override { parameters.d2 = value; }

    Translation::Result getResult() const override { return Translation::Result::event; }
    void applyTo(MidiEngine::OrvMidiMessage& event) const override { parameters.applyTo(event, Derived::status); }
    /// Plays the result after the events that the backend has queued.
    void run(OrvIF& orv, MidiEngine::OrvMidiMessage message) const
    {
        applyTo(message);
        postPlayMidi(orv, message);
    }

    FunctionManagement::FunctionNoteSpan getNoteSpan(const MidiEvent& event) const override
    {
        return parameters.getNoteSpan(event, Derived::status);
    }

    void readParameters(const XmlElement& element) { readAttributes(element, parameters); }
    void writeParameters(std::ostream& out) const { writeAttributes(out, parameters); }

protected:
    MidiTranslationParameters parameters{};
};
}  // namespace Backend::MidiInput::TranslationManagement
