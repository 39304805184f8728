#pragma once

#include "backend/values/OrvMidiMessage.h"

namespace Host
{
/// Where the events of the inputs go: the backend, see `OrvIF::playMidiInputEvent`. For each event that `play` refuses,
/// and for each call of `defer`, one call of `post` or `postLost` follows, on any thread that may allocate.
class InputReceiver
{
public:
    using Event = Backend::MidiEngine::OrvMidiMessage;

    virtual ~InputReceiver() = default;

    /// Plays an event at once. False if it has to be posted. The thread that receives from the device.
    virtual bool play(const Event& event) = 0;
    /// An event of that input will be posted, although it could have been played. The same thread.
    virtual void defer(int input) = 0;

    virtual void post(const Event& event) = 0;
    /// An event of that input was lost before it could be posted.
    virtual void postLost(int input) = 0;
};
}  // namespace Host
