#pragma once

#include <cstdint>

#include "backend/values/MidiMessage.h"

namespace Backend::MidiEngine
{
/// Receives every event that the engine plays, for the retrospective record. It must outlive the slices.
class EventRecorder
{
public:
    virtual ~EventRecorder() = default;

    /// Time slice only: must not wait, allocate or call the system. `output` is -1 to 127, `milliseconds` the player's
    /// time.
    virtual void addEvent(const MidiMessage& message, int output, std::uint32_t milliseconds) = 0;

    /// Called after a slice that added events, without the engine lock.
    virtual void wake() = 0;
};
}  // namespace Backend::MidiEngine
