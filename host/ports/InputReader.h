#pragma once

#include <atomic>
#include <functional>

#include "host/ports/Ports.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// Takes what arrived at the inputs and hands it on, so that an audio callback only fills a ring: to post to the
/// backend allocates, and an allocation may wait for any thread of the process. The detour is far shorter than an audio
/// period, and an event is played in the next one either way.
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

    /// Something arrived. Any thread; does not wait.
    void wake() { arrived.set(); }

private:
    void run(const Listener& listener);

    const Ports& ports;
    Event arrived;
    std::atomic<bool> stopping{false};
    Thread thread;
};
}  // namespace Host
