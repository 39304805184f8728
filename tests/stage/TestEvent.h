#pragma once

#include "backend/values/OrvMidiMessage.h"

/// An event by name: `noteOn(60).output(1).zone(3)`. What is not named is none: no output, channel, zone or input, and
/// the pulse of the next slice.
struct TestEvent {
    Backend::MidiEngine::MessageType type;
    int d1;
    int d2 = 0;
    int toOutput = -1;
    int onChannel = -1;
    int inZone = -1;
    int fromInput = -1;
    int atPulse = -1;

    TestEvent output(int port) const { return with(&TestEvent::toOutput, port); }
    TestEvent channel(int number) const { return with(&TestEvent::onChannel, number); }
    TestEvent zone(int id) const { return with(&TestEvent::inZone, id); }
    TestEvent input(int port) const { return with(&TestEvent::fromInput, port); }
    TestEvent pulse(int ppq) const { return with(&TestEvent::atPulse, ppq); }

    operator Backend::MidiEngine::OrvMidiMessage() const
    {
        return {type, d1, d2, onChannel, toOutput, inZone, fromInput, atPulse};
    }

private:
    TestEvent with(int TestEvent::*field, int value) const
    {
        TestEvent changed = *this;
        changed.*field = value;
        return changed;
    }
};

inline TestEvent noteOn(int note, int velocity = 100)
{
    return {Backend::MidiEngine::MessageType::noteOn, note, velocity};
}
inline TestEvent noteOff(int note, int velocity = 64)
{
    return {Backend::MidiEngine::MessageType::noteOff, note, velocity};
}
inline TestEvent controller(int number, int value)
{
    return {Backend::MidiEngine::MessageType::controllerChange, number, value};
}
