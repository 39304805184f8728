#pragma once

#include <atomic>
#include <functional>

#include "host/ports/Ports.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// Takes the messages from the rings of the inputs and passes them to a listener on a thread of its own. The process
/// callback only fills the rings: posting to the backend allocates, and an allocation may wait for any thread of the
/// process. The delay is much shorter than an audio period.
class InputReader
{
public:
    using Listener = std::function<void(const Backend::MidiEngine::OrvMidiMessage&)>;

    /// `allPorts` must outlive the reader.
    explicit InputReader(const Ports& allPorts) : ports(allPorts) {}
    ~InputReader() { stop(); }

    void start(Listener listener);

    /// The listener is not called once this has returned.
    void stop();

    /// A message was pushed into a ring. Any thread; never waits.
    void wake() { arrived.set(); }

private:
    void run(const Listener& listener);

    const Ports& ports;
    Event arrived;
    std::atomic<bool> stopping{false};
    Thread thread;
};
}  // namespace Host
