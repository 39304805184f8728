#pragma once

#include <cstdint>

#include "backend/values/MidiMessage.h"

namespace Backend::MidiEngine
{
/// Where the engine records what it plays. Must outlive the slices.
class EventRecorder
{
public:
    virtual ~EventRecorder() = default;

    /// Inside a time slice: must not wait, allocate or call the system. `output` -1 to 127, `milliseconds` of the
    /// player's time.
    virtual void addEvent(const MidiMessage& message, int output, std::uint32_t milliseconds) = 0;

    /// After a slice that added events, without the engine lock.
    virtual void wake() = 0;
};
}  // namespace Backend::MidiEngine
