#pragma once

#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// Where the engine logs what it plays and receives, to be shown. Must outlive the slices.
class EventLog
{
public:
    virtual ~EventLog() = default;

    /// Inside a time slice: must not wait, allocate or call the system.
    virtual void addFromSlice(const OrvMidiMessage& event) = 0;
    /// The same for an event of an input.
    virtual void addInputFromSlice(const OrvMidiMessage& event) = 0;

    /// After a slice that added events, without the engine lock.
    virtual void wake() = 0;
};
}  // namespace Backend::MidiEngine
