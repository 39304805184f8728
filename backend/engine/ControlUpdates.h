#pragma once

#include <array>
#include <atomic>

#include "backend/model/ControlMap.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/MessageQueue.h"

namespace Backend::Controls
{
/// Passes played events to the controls that follow them. It has a table of the events that any control follows, and
/// the queue of the backend thread. Nothing here waits; an event that no control follows costs one table look-up.
class ORV_API ControlUpdates
{
public:
    /// The number of the update message; `read` returns its event.
    static constexpr unsigned int MESSAGE = 33974;

    /// `queue` is the queue of the thread that owns the controls.
    explicit ControlUpdates(MessageQueue& queue) : controls(queue) {}

    /// Replaces the table by the events of these controls. The thread that owns the controls.
    void setFollowed(const ControlMap& map);

    /// Any thread.
    bool follows(const MidiEngine::OrvMidiMessage& event) const
    {
        return followed[placeOf(event.getMidiMessage())].load(std::memory_order_relaxed);
    }

    /// Time slice only; `wake` must be called after the engine lock was released.
    void postFromSlice(const MidiEngine::OrvMidiMessage& event) { controls.postFromSlice(pack(event)); }
    void wake() { controls.wake(); }

    /// Packs into the two parameters what a control compares: message, output, channel, zone, and the cell of the
    /// control that sent the event, if it has one.
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
