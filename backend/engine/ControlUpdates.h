#pragma once

#include <array>
#include <atomic>

#include "backend/model/ControlMap.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/MessageQueue.h"

namespace Backend::Controls
{
/// Passes events that are played to the controls that follow them: a table of the events that any control follows, and
/// the queue of the controls' thread. Nothing here waits. An event that no control follows costs one table look-up.
class ORV_API ControlUpdates
{
public:
    /// The message of an update; `read` gives back its event.
    static constexpr unsigned int MESSAGE = 33974;

    /// `queue` is that of the thread that owns the controls.
    explicit ControlUpdates(MessageQueue& queue) : controls(queue) {}

    /// From now on the events of these controls are followed. The controls' thread.
    void setFollowed(const ControlMap& map);

    /// Any thread.
    bool follows(const MidiEngine::OrvMidiMessage& event) const
    {
        return followed[placeOf(event.getMidiMessage())].load(std::memory_order_relaxed);
    }

    /// Inside a time slice only; `wake` follows once the engine lock is left.
    void postFromSlice(const MidiEngine::OrvMidiMessage& event) { controls.postFromSlice(pack(event)); }
    void wake() { controls.wake(); }

    /// The event with what a control compares: message, output, channel, zone and the cell that it came from, if that
    /// lies within 0 to 15 each way. All of it travels in the two parameters.
    static Message pack(const MidiEngine::OrvMidiMessage& event);
    static MidiEngine::OrvMidiMessage read(const Message& message);

private:
    // The 256 status bytes, then the controllers
    static std::size_t placeOf(const MidiEngine::MidiMessage& event)
    {
        if (event.isControllerChange()) return 256u + event.getD1();
        return static_cast<std::uint8_t>(event.getStatus());
    }

    std::array<std::atomic<bool>, 512> followed{};
    MessageQueue& controls;
};
}  // namespace Backend::Controls
