#pragma once

#include "backend/values/OrvMidiMessage.h"

using Backend::MidiEngine::MessageType;

/// An event by name: `noteOn(60).output(1).zone(3)`. What is not named is none: no output, channel, zone or input, and
/// the pulse of the next slice.
struct TestEvent {
    using Fields = Backend::MidiEngine::OrvMidiMessage::Fields;

    Fields fields;

    TestEvent output(int port) const { return with(&Fields::output, port); }
    TestEvent channel(int number) const { return with(&Fields::channel, number); }
    TestEvent zone(int id) const { return with(&Fields::zone, id); }
    TestEvent input(int port) const { return with(&Fields::input, port); }
    TestEvent pulse(std::int32_t ppq) const { return with(&Fields::pulse, ppq); }

    operator Backend::MidiEngine::OrvMidiMessage() const { return fields; }

private:
    TestEvent with(int Fields::*field, int value) const
    {
        TestEvent changed = *this;
        changed.fields.*field = value;
        return changed;
    }
};

inline TestEvent event(MessageType type, int d1 = 0, int d2 = 0) { return {{.type = type, .d1 = d1, .d2 = d2}}; }
inline TestEvent noteOn(int note, int velocity = 100) { return event(MessageType::noteOn, note, velocity); }
inline TestEvent noteOff(int note, int velocity = 64) { return event(MessageType::noteOff, note, velocity); }
inline TestEvent controller(int number, int value) { return event(MessageType::controllerChange, number, value); }
